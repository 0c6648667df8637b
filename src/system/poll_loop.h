// SPDX-License-Identifier: MIT
// The console's event loop: descriptors and timers over poll(), without a toolkit, whose libraries would take
// more time and memory than the rest of the program's start.
#pragma once

#include <poll.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "system/descriptor_loop.h"
#include "system/sliced_loop.h"

namespace requite {

/// Each turn delivers every descriptor that can be read, in the order of their watches, then every timer that
/// is due, the earliest first. Handlers may let events run, start and stop timers, and destroy any watch,
/// their own too.
class PollLoop : public SlicedLoop {
 public:
  /// A watched descriptor.
  struct Watched {
    int Descriptor;
    std::function<void()> OnReadable;
    bool IsOn = true;
    bool IsReady = false;  ///< by the last poll, and not yet delivered
  };
  using SteadyClock = std::chrono::steady_clock;
  /// A timer that runs.
  struct Timed {
    SteadyClock::time_point Due;
    std::chrono::milliseconds Interval;
    bool Repeats;
    std::function<void()> OnDue;
    std::uint64_t Order;  ///< the timers started before it
    bool IsStopped = false;
    bool IsDelivering = false;
  };

  /// No failure may leave the handlers. They may run until the watch or timer is removed.
  [[nodiscard]] std::shared_ptr<Watched> Watch(int descriptor, std::function<void()> onReadable);
  void Remove(Watched& watched);
  /// A timer that repeats skips the ticks that it misses, and those that come while its handler runs. A
  /// negative interval is 0.
  std::shared_ptr<Timed> StartTimer(std::chrono::milliseconds interval, bool repeats,
                                    std::function<void()> onDue);
  void Stop(Timed& timer);

  void TakeTurn(std::chrono::milliseconds longest) override;

 private:
  void Poll(std::chrono::milliseconds longest);
  void DeliverReadable();
  void DeliverDue(SteadyClock::time_point now, std::uint64_t order);

  std::vector<std::shared_ptr<Watched>> watched_;
  std::vector<std::shared_ptr<Timed>> timers_;
  std::uint64_t started_ = 0;
  std::vector<pollfd> polled_;  ///< reused, so that a turn allocates nothing
};

/// Descriptors on a PollLoop. Each event of one is a slice of its own.
class PollDescriptorLoop : public DescriptorLoop {
 public:
  /// Both must outlive this object and its watches.
  PollDescriptorLoop(PollLoop& loop, const EventGuard& guard) : loop_(loop), guard_(guard) {}

  [[nodiscard]] std::unique_ptr<DescriptorWatch> Watch(int descriptor,
                                                       std::function<void()> onReadable) override;
  /// Never false: nothing but its events ends the program.
  [[nodiscard]] bool RunUntil(const bool& over) override;
  /// Waits look after each turn by themselves, and only handlers can call this.
  void Wake() override {}

 private:
  PollLoop& loop_;
  const EventGuard& guard_;
};

/// A repeating timer on a PollLoop.
class PollTimer : public Timer {
 public:
  /// Both must outlive the timer.
  PollTimer(PollLoop& loop, const EventGuard& guard) : loop_(loop), guard_(guard) {}
  ~PollTimer() override { PollTimer::Stop(); }
  PollTimer(const PollTimer&) = delete;
  PollTimer& operator=(const PollTimer&) = delete;

  void Start(int intervalMilliseconds) override;
  void Stop() override;
  [[nodiscard]] bool IsRunning() const { return running_ != nullptr; }

 private:
  PollLoop& loop_;
  const EventGuard& guard_;
  std::shared_ptr<PollLoop::Timed> running_;
};

}  // namespace requite
