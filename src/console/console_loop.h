// SPDX-License-Identifier: MIT
// What the console needs from the event loop besides a yield.
#pragma once

#include <functional>

namespace requite {

class ConsoleLoop {
 public:
  virtual ~ConsoleLoop() = default;

  /// Lets events run until `done` returns true (tested first, and after each delivery) or until the time
  /// has passed; a negative time never does. Returns the last result of `done`.
  virtual bool RunUntil(const std::function<bool()>& done, int milliseconds) = 0;
  /// Runs the action once, as an event, after that time. A failure that it does not handle is reported
  /// like that of any event.
  virtual void After(int milliseconds, std::function<void()> action) = 0;
};

}  // namespace requite
