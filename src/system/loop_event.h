// SPDX-License-Identifier: MIT
// An event that the program sends to itself.
#pragma once

#include <functional>
#include <memory>

#include "system/descriptor_loop.h"

namespace requite {

/// Comes in its turn with what is ready on sockets. A timer of no time would come only when nothing else is.
class LoopEvent {
 public:
  /// The loop must outlive this object.
  LoopEvent(DescriptorLoop& loop, std::function<void()> onEvent);
  ~LoopEvent();
  LoopEvent(const LoopEvent&) = delete;
  LoopEvent& operator=(const LoopEvent&) = delete;

  /// `onEvent` will run once, however often this is called before.
  void Raise();

 private:
  std::function<void()> onEvent_;
  int descriptor_;
  std::unique_ptr<DescriptorWatch> watch_;
};

}  // namespace requite
