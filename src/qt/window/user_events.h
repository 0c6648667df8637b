// SPDX-License-Identifier: MIT
// What the user does: the edge of the event loop, and the picture of what it changed.
#pragma once

#include <utility>

#include "qt/window/view_refresh.h"
#include "system/event_guard.h"

namespace requite {

/// Runs the handlers of the user's events. What a handler changed is on screen when it ends, so that the
/// next key or click meets the window as the handler left it. The scan's own events do not come here:
/// their changes wait for the refresh's timer.
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
