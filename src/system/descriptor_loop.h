// SPDX-License-Identifier: MIT
// What page connections and GETs need of the event loop: watching descriptors.
#pragma once

#include <functional>
#include <memory>

namespace requite {

/// Watches a descriptor until it is destroyed, which must be before the descriptor is closed.
class DescriptorWatch {
 public:
  virtual ~DescriptorWatch() = default;
  /// A watch that is off reports nothing. A new one is on.
  virtual void SetOn(bool on) = 0;
};

class DescriptorLoop {
 public:
  virtual ~DescriptorLoop() = default;

  /// From now on `onReadable` runs as an event whenever the descriptor can be read.
  [[nodiscard]] virtual std::unique_ptr<DescriptorWatch> Watch(int descriptor,
                                                               std::function<void()> onReadable) = 0;

  /// Lets events run until `over` holds; calls nest. False when the program was told to end first.
  [[nodiscard]] virtual bool RunUntil(const bool& over) = 0;
  /// Makes every RunUntil check its `over` again.
  virtual void Wake() = 0;
};

}  // namespace requite
