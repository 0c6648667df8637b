// SPDX-License-Identifier: MIT
// The ticks of a QTimer, run by the guard.
#include "qt/services/qt_timer.h"

namespace requite {

QtTimer::QtTimer(const EventGuard& guard) {
  // A page's seconds of silence are counted by ticks, and a coarse timer may be early.
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, &guard] {
    guard.Run([this] {
      if (OnTick) OnTick();
    });
  });
}

void QtTimer::Start(int intervalMilliseconds) { timer_.start(intervalMilliseconds); }

void QtTimer::Stop() { timer_.stop(); }

}  // namespace requite
