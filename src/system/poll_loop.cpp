// SPDX-License-Identifier: MIT
// Turns of the loop: one poll, then the handlers.
#include "system/poll_loop.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace requite {
namespace {

constexpr std::chrono::milliseconds kLongest = std::chrono::hours(1);

timespec TimeOf(std::chrono::nanoseconds wait) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(wait);
  return {seconds.count(), (wait - seconds).count()};
}

class PollWatch : public DescriptorWatch {
 public:
  PollWatch(PollLoop& loop, std::shared_ptr<PollLoop::Watched> watched)
      : loop_(loop), watched_(std::move(watched)) {}
  ~PollWatch() override { loop_.Remove(*watched_); }
  PollWatch(const PollWatch&) = delete;
  PollWatch& operator=(const PollWatch&) = delete;

  void SetOn(bool on) override {
    watched_->IsOn = on;
    watched_->IsReady = watched_->IsReady && on;
  }

 private:
  PollLoop& loop_;
  std::shared_ptr<PollLoop::Watched> watched_;
};

}  // namespace

std::shared_ptr<PollLoop::Watched> PollLoop::Watch(int descriptor, std::function<void()> onReadable) {
  watched_.push_back(std::make_shared<Watched>(Watched{descriptor, std::move(onReadable)}));
  return watched_.back();
}

void PollLoop::Remove(Watched& watched) {
  watched.IsReady = false;
  std::erase_if(watched_, [&](const auto& each) { return each.get() == &watched; });
}

std::shared_ptr<PollLoop::Timed> PollLoop::StartTimer(std::chrono::milliseconds interval, bool repeats,
                                                      std::function<void()> onDue) {
  interval = std::max(interval, std::chrono::milliseconds(0));
  timers_.push_back(std::make_shared<Timed>(
      Timed{SteadyClock::now() + interval, interval, repeats, std::move(onDue), started_++}));
  return timers_.back();
}

void PollLoop::Stop(Timed& timer) {
  timer.IsStopped = true;
  std::erase_if(timers_, [&](const auto& each) { return each.get() == &timer; });
}

/// A timer that a handler of this turn starts is for the next one, so a turn always ends.
void PollLoop::TakeTurn(std::chrono::milliseconds longest) {
  Poll(longest);
  const SteadyClock::time_point now = SteadyClock::now();
  const std::uint64_t order = started_;
  DeliverReadable();
  DeliverDue(now, order);
}

void PollLoop::Poll(std::chrono::milliseconds longest) {
  std::chrono::nanoseconds wait = longest;
  if (longest.count() > 0 && !timers_.empty()) {
    const auto byDue = [](const auto& one, const auto& other) { return one->Due < other->Due; };
    const auto first = std::min_element(timers_.begin(), timers_.end(), byDue);
    wait = std::clamp<std::chrono::nanoseconds>((*first)->Due - SteadyClock::now(),
                                                std::chrono::nanoseconds(0), wait);
  }
  polled_.clear();
  for (const auto& each : watched_) {
    // poll() ignores a negative descriptor.
    polled_.push_back({each->IsOn ? each->Descriptor : -1, POLLIN, 0});
  }
  const timespec time = TimeOf(wait);
  const int count = ::ppoll(polled_.data(), polled_.size(), &time, nullptr);
  for (std::size_t i = 0; i < watched_.size(); ++i) {
    const short found = count > 0 ? polled_[i].revents : short{0};
    // A closed descriptor would be reported at every turn.
    if ((found & POLLNVAL) != 0) watched_[i]->IsOn = false;
    watched_[i]->IsReady = (found & (POLLIN | POLLHUP | POLLERR)) != 0;
  }
}

/// A nested turn polls again and delivers what it finds, so the marks are never older than the last poll.
/// When a watch goes, the one after it may have to wait for the next turn.
void PollLoop::DeliverReadable() {
  for (std::size_t i = 0; i < watched_.size(); ++i) {
    const std::shared_ptr<Watched> one = watched_[i];  // the handler may destroy its watch
    if (std::exchange(one->IsReady, false)) one->OnReadable();
  }
}

void PollLoop::DeliverDue(SteadyClock::time_point now, std::uint64_t order) {
  std::vector<std::shared_ptr<Timed>> due;
  for (const auto& each : timers_) {
    if (each->Due <= now && each->Order < order) due.push_back(each);
  }
  std::sort(due.begin(), due.end(), [](const auto& one, const auto& other) {
    return std::tie(one->Due, one->Order) < std::tie(other->Due, other->Order);
  });
  for (const auto& each : due) {
    // The handlers before this one may have stopped it, or let a turn deliver it.
    if (each->IsStopped || each->Due > now) continue;
    if (each->Repeats) {
      each->Due += each->Interval;
      if (each->Due <= now) each->Due = now + each->Interval;
    } else {
      Stop(*each);
    }
    if (std::exchange(each->IsDelivering, true)) continue;
    each->OnDue();
    each->IsDelivering = false;
  }
}

std::unique_ptr<DescriptorWatch> PollDescriptorLoop::Watch(int descriptor, std::function<void()> onReadable) {
  return std::make_unique<PollWatch>(loop_, loop_.Watch(descriptor, [this, run = std::move(onReadable)] {
    RunAsSlice(guard_, loop_.Late(), run);
  }));
}

bool PollDescriptorLoop::RunUntil(const bool& over) {
  const LateWork::Pause pause(loop_.Late());
  while (!over) loop_.TakeTurn(kLongest);
  return true;
}

void PollTimer::Start(int intervalMilliseconds) {
  Stop();
  running_ = loop_.StartTimer(std::chrono::milliseconds(intervalMilliseconds), true, [this] {
    guard_.Run([this] {
      if (OnTick) OnTick();
    });
  });
}

void PollTimer::Stop() {
  if (running_) loop_.Stop(*running_);
  running_.reset();
}

}  // namespace requite
