// SPDX-License-Identifier: MIT
// The program's event loop as the users of descriptors need it: page connections and GETs.
#pragma once

#include <functional>
#include <memory>

namespace requite {

/// Tells of a descriptor that can be read, until it is destroyed; that must be before the descriptor closes.
class DescriptorWatch {
 public:
  virtual ~DescriptorWatch() = default;
  /// A watch that is off tells nothing. A new one is on.
  virtual void SetOn(bool on) = 0;
};

class DescriptorLoop {
 public:
  virtual ~DescriptorLoop() = default;

  /// From now on `onReadable` runs as an event whenever the descriptor can be read.
  [[nodiscard]] virtual std::unique_ptr<DescriptorWatch> Watch(int descriptor,
                                                               std::function<void()> onReadable) = 0;

  /// Lets events run until `over` holds; calls nest. False when the program was told to end before that.
  [[nodiscard]] virtual bool RunUntil(const bool& over) = 0;
  /// Makes every RunUntil look at its `over` again.
  virtual void Wake() = 0;
};

}  // namespace requite
