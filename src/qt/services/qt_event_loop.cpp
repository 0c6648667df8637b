// SPDX-License-Identifier: MIT
// One turn of Qt's loop; an alarm ends its wait.
#include "qt/services/qt_event_loop.h"

#include <QCoreApplication>
#include <QTimer>

namespace requite {

void QtEventLoop::TakeTurn(std::chrono::milliseconds longest) {
  if (longest.count() <= 0) return QCoreApplication::processEvents();
  QTimer alarm;
  alarm.setTimerType(Qt::PreciseTimer);
  alarm.start(longest);
  QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

}  // namespace requite
