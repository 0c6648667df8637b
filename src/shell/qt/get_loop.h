// SPDX-License-Identifier: MIT
// The program's event loop as GETs need it.
#pragma once

#include <functional>

namespace requite {

class GetLoop {
 public:
  virtual ~GetLoop() = default;

  /// From now on `onReadable` runs as an event whenever the descriptor can be read.
  virtual void Watch(int descriptor, std::function<void()> onReadable) = 0;
  /// Ends the watch, before the descriptor is closed.
  virtual void Unwatch() = 0;

  /// Lets events run until `over` holds; calls nest. False when the program was told to end before that.
  [[nodiscard]] virtual bool RunUntil(const bool& over) = 0;
  /// Makes every RunUntil look at its `over` again.
  virtual void Wake() = 0;
};

}  // namespace requite
