// SPDX-License-Identifier: MIT
// Reading a number out of a text the strict way. It works on the decimal digits, without floating
// point, so that one half is exactly one half.
#include <algorithm>
#include <limits>

#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool TakeSign(std::string_view& rest) {
  const bool negative = rest.starts_with('-');
  if (negative || rest.starts_with('+')) rest.remove_prefix(1);
  return negative;
}

/// Removes the digits at the start of the text and returns them.
std::string_view TakeDigits(std::string_view& rest) {
  const auto end = std::find_if_not(rest.begin(), rest.end(), IsDigit);
  const std::string_view digits = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
  rest.remove_prefix(digits.size());
  return digits;
}

/// A number of the form 0.DIGITS times ten to the power of Point; the first digit is not 0, and zero
/// has no digits at all.
struct Decimal {
  bool Negative = false;
  std::string Digits;
  std::int64_t Point = 0;
};

std::int64_t TakeExponent(std::string_view& rest) {
  // Far beyond any length of text, so that a longer exponent changes nothing.
  constexpr std::int64_t kFar = 1'000'000'000'000;
  rest.remove_prefix(1);
  const bool negative = TakeSign(rest);
  const std::string_view digits = TakeDigits(rest);
  if (digits.empty()) throw RuntimeFailure(Failure::TypeMismatch);
  std::int64_t exponent = 0;
  for (const char digit : digits) exponent = std::min(exponent * 10 + (digit - '0'), kFar);
  return negative ? -exponent : exponent;
}

Decimal ReadDecimal(std::string_view text) {
  std::string_view rest = Trim(text);
  Decimal decimal;
  decimal.Negative = TakeSign(rest);
  const std::string_view whole = TakeDigits(rest);
  std::string_view fraction;
  if (rest.starts_with('.')) {
    rest.remove_prefix(1);
    fraction = TakeDigits(rest);
  }
  if (whole.empty() && fraction.empty()) throw RuntimeFailure(Failure::TypeMismatch);
  decimal.Point = static_cast<std::int64_t>(whole.size());
  if (rest.starts_with('e') || rest.starts_with('E')) decimal.Point += TakeExponent(rest);
  if (!rest.empty()) throw RuntimeFailure(Failure::TypeMismatch);

  decimal.Digits.append(whole).append(fraction);
  const std::size_t zeros = std::min(decimal.Digits.find_first_not_of('0'), decimal.Digits.size());
  decimal.Digits.erase(0, zeros);
  decimal.Point -= static_cast<std::int64_t>(zeros);
  return decimal;
}

/// Whether the fraction is more than one half (1), one half (0) or less (-1).
int CompareToHalf(const Decimal& decimal) {
  const std::int64_t size = static_cast<std::int64_t>(decimal.Digits.size());
  if (decimal.Point < 0 || decimal.Point >= size) return -1;
  const std::string_view behind =
      std::string_view(decimal.Digits).substr(static_cast<std::size_t>(decimal.Point));
  if (behind.front() != '5') return behind.front() > '5' ? 1 : -1;
  return behind.find_first_not_of('0', 1) == std::string_view::npos ? 0 : 1;
}

template <class Integer>
Integer ReadInteger(std::string_view text) {
  const Decimal decimal = ReadDecimal(text);
  constexpr std::int64_t kMostDigits = 10;
  if (decimal.Digits.empty()) return 0;
  if (decimal.Point > kMostDigits) throw RuntimeFailure(Failure::Overflow);
  std::int64_t value = 0;
  for (std::int64_t i = 0; i < decimal.Point; ++i) {
    const auto place = static_cast<std::size_t>(i);
    value = value * 10 + (place < decimal.Digits.size() ? decimal.Digits[place] - '0' : 0);
  }
  const int half = CompareToHalf(decimal);
  if (half > 0 || (half == 0 && value % 2 != 0)) ++value;
  if (decimal.Negative) value = -value;
  if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max()) {
    throw RuntimeFailure(Failure::Overflow);
  }
  return static_cast<Integer>(value);
}

}  // namespace

std::int16_t ReadInt16(std::string_view text) { return ReadInteger<std::int16_t>(text); }
std::int32_t ReadInt32(std::string_view text) { return ReadInteger<std::int32_t>(text); }

}  // namespace requite
