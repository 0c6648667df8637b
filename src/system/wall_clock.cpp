// SPDX-License-Identifier: MIT
// The system's time, and numbers without a locale.
#include "system/wall_clock.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace requite {
namespace {

constexpr std::array kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::tm LocalTime() {
  ::tzset();  // the time zone may have been changed
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  ::localtime_r(&now, &parts);
  return parts;
}

std::string Formatted(const char* format, const std::tm& time) {
  std::array<char, 64> text{};
  return {text.data(), std::strftime(text.data(), text.size(), format, &time)};
}

}  // namespace

std::string WallClock::IsoDateTime() { return Formatted("%Y-%m-%d %H:%M:%S", LocalTime()); }

std::string WallClock::UtcDateTime() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  ::gmtime_r(&now, &parts);
  return Formatted("%Y-%m-%dT%H:%M:%SZ", parts);
}

double WallClock::Rounded(double value) {
  constexpr int kDecimalDigits = 15;
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value * 100,
                                 std::chars_format::general, kDecimalDigits);
  double hundredths = 0;
  std::from_chars(text.data(), end.ptr, hundredths);
  return std::round(hundredths) / 100;
}

std::string PlainClock::ShortDate() {
  const std::tm now = LocalTime();
  return std::to_string(now.tm_mday) + " " + kMonths.at(static_cast<std::size_t>(now.tm_mon)) + " " +
         Formatted("%Y", now);
}

std::string PlainClock::ShortTime() { return Formatted("%H:%M:%S", LocalTime()); }

std::string PlainClock::TwoDecimals(double value) {
  constexpr std::size_t kMost = 400;  // the largest number has 309 digits before the point
  std::array<char, kMost> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), Rounded(value), std::chars_format::fixed, 2);
  std::string figure(text.data(), end.ptr);
  const std::size_t first = figure.front() == '-' ? 1 : 0;
  // A comma before each three digits that come before the point.
  for (std::size_t at = figure.find('.'); at != std::string::npos && at > first + 3;) {
    at -= 3;
    figure.insert(at, 1, ',');
  }
  return figure;
}

}  // namespace requite
