// SPDX-License-Identifier: MIT
// The event loop's edge: no exception may leave an event handler, because none may pass through Qt.
#pragma once

#include <functional>

#include "platform/runtime_failure.h"

namespace requite {

/// Runs event handlers. A failure that a handler does not catch is passed to the report that main
/// gave, which ends the program; if the report returns, the event is over and nothing else happens.
class EventGuard {
 public:
  using Report = std::function<void(const RuntimeFailure&)>;

  explicit EventGuard(Report report) : report_(std::move(report)) {}

  template <class Handler>
  void Run(Handler&& handler) const {
    try {
      std::forward<Handler>(handler)();
    } catch (...) {
      ReportCurrentFailure();
    }
  }

 private:
  void ReportCurrentFailure() const;

  Report report_;
};

}  // namespace requite
