// SPDX-License-Identifier: MIT
// Waits, and yields that are cheap because most return at once.
#include "qt/services/qt_event_loop.h"

#include <QCoreApplication>
#include <QTimer>
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

void QtEventLoop::LetPendingEventsRun() {
  if (YieldClock() - lastDelivery_ < kSlice) return;
  Deliver(QEventLoop::AllEvents);
}

/// No failure of a handler passes through the toolkit.
void QtEventLoop::Deliver(int flags) {
  const LateWork::Pause pause(Late());
  ++depth_;
  ++deliveries_;
  QCoreApplication::processEvents(QEventLoop::ProcessEventsFlags(flags));
  --depth_;
  ++deliveries_;  // a handler may have asked for the number before its last change
  lastDelivery_ = YieldClock();
}

void QtEventLoop::RunFor(std::chrono::milliseconds duration) {
  // This predicate never holds, so only the limit ends the run.
  RunUntil([] { return false; }, duration);
}

bool QtEventLoop::RunUntil(const std::function<bool()>& predicate, std::chrono::milliseconds limit) {
  using SteadyClock = std::chrono::steady_clock;
  if (predicate()) return true;
  Deliver(QEventLoop::AllEvents);
  const SteadyClock::time_point end =
      SteadyClock::now() + std::clamp(limit, std::chrono::milliseconds(0), kLongest);
  QTimer alarm;
  alarm.setTimerType(Qt::PreciseTimer);
  while (!predicate()) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - SteadyClock::now());
    if (left.count() <= 0) return false;
    alarm.start(std::min(left, kLookAgain));
    Deliver(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
  return true;
}

}  // namespace requite
