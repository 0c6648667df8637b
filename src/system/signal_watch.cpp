// SPDX-License-Identifier: MIT
// Reads signals from a descriptor.
#include "system/signal_watch.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <utility>

namespace requite {

SignalWatch::SignalWatch(DescriptorLoop& loop, std::function<void()> onSignal)
    : onSignal_(std::move(onSignal)) {
  sigset_t asked;
  sigemptyset(&asked);
  for (const int each : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&asked, each);
  ::pthread_sigmask(SIG_BLOCK, &asked, &before_);
  descriptor_ = ::signalfd(-1, &asked, SFD_CLOEXEC | SFD_NONBLOCK);
  watch_ = loop.Watch(descriptor_, [this] { Take(); });
}

SignalWatch::~SignalWatch() {
  watch_.reset();
  ::close(descriptor_);
  ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

void SignalWatch::Take() {
  signalfd_siginfo taken{};
  if (::read(descriptor_, &taken, sizeof taken) != sizeof taken) return;
  sigset_t second;
  sigemptyset(&second);
  for (const int each : {SIGINT, SIGTERM}) sigaddset(&second, each);
  ::pthread_sigmask(SIG_UNBLOCK, &second, nullptr);
  onSignal_();
}

}  // namespace requite
