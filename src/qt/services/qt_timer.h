// SPDX-License-Identifier: MIT
// A repeating timer on Qt's event loop.
#pragma once

#include <QTimer>

#include "platform/services.h"
#include "system/event_guard.h"

namespace requite {

class QtTimer : public Timer {
 public:
  /// The guard must outlive the timer.
  explicit QtTimer(const EventGuard& guard);

  void Start(int intervalMilliseconds) override;
  void Stop() override;
  [[nodiscard]] bool IsRunning() const { return timer_.isActive(); }

 private:
  QTimer timer_;
};

}  // namespace requite
