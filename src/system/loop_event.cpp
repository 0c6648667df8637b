// SPDX-License-Identifier: MIT
// A counter of the system that can be waited for like a socket.
#include "system/loop_event.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>
#include <utility>

namespace requite {

LoopEvent::LoopEvent(DescriptorLoop& loop, std::function<void()> onEvent)
    : onEvent_(std::move(onEvent)),
      descriptor_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      watch_(loop.Watch(descriptor_, [this] {
        std::uint64_t raised = 0;
        if (::read(descriptor_, &raised, sizeof raised) > 0) onEvent_();
      })) {}

LoopEvent::~LoopEvent() {
  watch_.reset();
  ::close(descriptor_);
}

void LoopEvent::Raise() {
  const std::uint64_t once = 1;
  static_cast<void>(!::write(descriptor_, &once, sizeof once));
}

}  // namespace requite
