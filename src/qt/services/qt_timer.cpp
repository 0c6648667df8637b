// SPDX-License-Identifier: MIT
// Ticks of a QTimer, through the guard.
#include "qt/services/qt_timer.h"

namespace requite {

QtTimer::QtTimer(const EventGuard& guard) {
  // The tick of a second counts a page's seconds of silence; a coarse timer may be early.
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
