// SPDX-License-Identifier: MIT
// Runs the handlers of the user's events and shows what they changed.
#pragma once

#include <utility>

#include "qt/window/controls/view_refresh.h"
#include "system/event_guard.h"

namespace requite {

/// Runs the handlers of the user's events. What a handler changed is on screen when it ends, so that the
/// next key or click finds the window as the handler left it. Not for events of the scan, whose changes
/// wait for the timer of the refresh.
class UserEvents {
 public:
  /// Both must outlive whatever a handler closes.
  UserEvents(const EventGuard& guard, ViewRefresh& refresh) : guard_(guard), refresh_(refresh) {}

  template <class Handler>
  void Run(Handler&& handler) const {
    ViewRefresh& refresh = refresh_;  // the handler may end the window that these events belong to
    guard_.Run(std::forward<Handler>(handler));
    refresh.ApplyMarked();
  }

 private:
  const EventGuard& guard_;
  ViewRefresh& refresh_;
};

}  // namespace requite
