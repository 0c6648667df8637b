// SPDX-License-Identifier: MIT
// Yields by a cheap clock, and waits that look again now and then.
#include "system/sliced_loop.h"

#include <algorithm>
#include <ctime>

namespace requite {
namespace {

/// What a predicate depends on may change without an event (a signal handler's flag).
constexpr std::chrono::milliseconds kLookAgain{50};

/// Keeps the end of a wait within the clock's range.
constexpr std::chrono::milliseconds kLongest = std::chrono::hours(24 * 365 * 100);

/// The system's coarse clock: it moves every few milliseconds, and reading it costs a fifth of reading
/// the exact one. There is a yield for each line of a page.
std::chrono::nanoseconds YieldClock() {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

}  // namespace

void SlicedLoop::LetPendingEventsRun() {
  if (YieldClock() - lastDelivery_ < kSlice) return;
  Deliver(std::chrono::milliseconds(0));
}

void SlicedLoop::Deliver(std::chrono::milliseconds longest) {
  const LateWork::Pause pause(Late());
  ++depth_;
  ++deliveries_;
  TakeTurn(longest);
  --depth_;
  ++deliveries_;  // a handler may have asked for the number before its last change
  lastDelivery_ = YieldClock();
}

void SlicedLoop::RunFor(std::chrono::milliseconds duration) {
  // This predicate never holds, so only the limit ends the run.
  RunUntil([] { return false; }, duration);
}

bool SlicedLoop::RunUntil(const std::function<bool()>& predicate, std::chrono::milliseconds limit) {
  using SteadyClock = std::chrono::steady_clock;
  if (predicate()) return true;
  Deliver(std::chrono::milliseconds(0));
  const SteadyClock::time_point end =
      SteadyClock::now() + std::clamp(limit, std::chrono::milliseconds(0), kLongest);
  while (!predicate()) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - SteadyClock::now());
    if (left.count() <= 0) return false;
    Deliver(std::min(left, kLookAgain));
  }
  return true;
}

void RunAsSlice(const EventGuard& guard, LateWork& late, const std::function<void()>& handler) {
  {
    const LateWork::Slice slice(late);
    guard.Run(handler);
  }
  guard.Run([&late] { late.Finish(); });
}

}  // namespace requite
