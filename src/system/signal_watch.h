// SPDX-License-Identifier: MIT
// The signals that ask a program to end, as events of the loop.
#pragma once

#include <csignal>
#include <functional>
#include <memory>

#include "system/descriptor_loop.h"

namespace requite {

/// Watches for SIGINT, SIGTERM and SIGHUP as long as it exists. The first one is an event; a second SIGINT
/// or SIGTERM ends the process at once, as without this object. A second SIGHUP does not, because a
/// closing terminal may send several.
class SignalWatch {
 public:
  /// The loop must outlive the watch.
  SignalWatch(DescriptorLoop& loop, std::function<void()> onSignal);
  ~SignalWatch();
  SignalWatch(const SignalWatch&) = delete;
  SignalWatch& operator=(const SignalWatch&) = delete;

 private:
  void Take();

  std::function<void()> onSignal_;
  sigset_t before_{};
  int descriptor_ = -1;
  std::unique_ptr<DescriptorWatch> watch_;
};

}  // namespace requite
