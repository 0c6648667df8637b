// SPDX-License-Identifier: MIT
// The mean time of a site so far, smoothed, and rounded so that it seldom changes.
#include "shell/main_window/time_left.h"

#include <algorithm>
#include <cmath>

namespace requite {
namespace {

constexpr double kFewestSites = 3;
constexpr double kShortestScan = 4;  // seconds
constexpr double kSettling = 10;     // seconds until most of a change is taken over
constexpr double kMinute = 60;       // seconds
constexpr double kHour = 60;         // minutes
// The site in progress counts as half done, so that one silent site does not look like the pace of all.
constexpr double kInProgress = 0.5;
// More than half a minute, or an estimate between two minutes would swing from one to the other.
constexpr double kOffBy = 0.7;

double Seconds(TimeLeft::Moment from, TimeLeft::Moment to) {
  return std::chrono::duration<double>(to - from).count();
}

}  // namespace

void TimeLeft::Begin(Moment now) {
  begin_ = last_ = now;
  seconds_.reset();
  minutes_.reset();
}

std::optional<double> TimeLeft::Estimate(double done, double all, Moment now) {
  const double elapsed = Seconds(begin_, now);
  if (done < kFewestSites || elapsed < kShortestScan || done >= all) return std::nullopt;
  const double fresh = elapsed / (done + kInProgress) * (all - done - kInProgress);
  const double passed = Seconds(last_, now);
  last_ = now;
  if (!seconds_) return seconds_ = fresh;
  const double expected = *seconds_ - passed;
  return seconds_ = std::max(0.0, expected + (fresh - expected) * std::min(1.0, passed / kSettling));
}

std::string TimeLeft::Words(double done, double all, Moment now) {
  const std::optional<double> seconds = Estimate(done, all, now);
  if (!seconds) return {};
  const double minutes = *seconds / kMinute;
  if (!minutes_ || std::abs(minutes - *minutes_) > kOffBy) minutes_ = std::round(minutes);
  if (*minutes_ < 1) return "under 1 min";
  if (*minutes_ < 1.5 * kHour) return "about " + std::to_string(static_cast<int>(*minutes_)) + " min";
  return "about " + std::to_string(static_cast<long>(std::round(*minutes_ / kHour))) + " h";
}

}  // namespace requite
