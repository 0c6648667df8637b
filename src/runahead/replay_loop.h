// SPDX-License-Identifier: MIT
// The event loop that a scan gets.
#pragma once

#include <functional>
#include <utility>

#include "platform/services.h"

namespace requite {

/// Yields as always, but lets its owner know. In the moment of a yield a server has hardly ever answered the
/// page that the same step has just asked for; what is recorded has always answered. So a scan must not get
/// its next event in a yield: some of its steps only end after one.
class ReplayLoop : public EventLoop {
 public:
  /// `afterYield` runs after each yield that is not within another one. It must not change anything that the
  /// steps of the scan work on.
  ReplayLoop(EventLoop& loop, std::function<void()> afterYield)
      : loop_(loop), afterYield_(std::move(afterYield)) {}

  void LetPendingEventsRun() override {
    {
      const Yield yield(yields_);
      loop_.LetPendingEventsRun();
    }
    if (yields_ == 0) afterYield_();
  }
  [[nodiscard]] LateWork& Late() override { return loop_.Late(); }
  [[nodiscard]] std::uint64_t Deliveries() const override { return loop_.Deliveries(); }
  [[nodiscard]] bool IsYielding() const { return yields_ > 0; }

 private:
  struct Yield {
    explicit Yield(int& yields) : Yields(yields) { ++Yields; }
    ~Yield() { --Yields; }
    Yield(const Yield&) = delete;
    Yield& operator=(const Yield&) = delete;
    int& Yields;
  };

  EventLoop& loop_;
  std::function<void()> afterYield_;
  int yields_ = 0;
};

}  // namespace requite
