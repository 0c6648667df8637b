// SPDX-License-Identifier: MIT
// What every form of the program's event loop has in common: waits, and yields of which most return at once.
#pragma once

#include <chrono>
#include <functional>

#include "platform/services.h"
#include "system/event_guard.h"

namespace requite {

class SlicedLoop : public EventLoop {
 public:
  /// A yield that comes within this time of the last delivery returns at once and only reads a
  /// clock with a step of up to 4 ms. So an event that has waited 10 ms is always delivered.
  static constexpr std::chrono::milliseconds kSlice{4};

  void LetPendingEventsRun() override;
  [[nodiscard]] std::uint64_t Deliveries() const override { return deliveries_; }

  /// Whether this object lets events run now.
  [[nodiscard]] bool IsRunning() const { return depth_ > 0; }

  /// Lets events run for that long; with 0, only those waiting now.
  void RunFor(std::chrono::milliseconds duration);

  /// Lets events run until the predicate holds (it is tested first, and after each delivery) or until
  /// `limit` has passed. Returns the predicate's last value.
  bool RunUntil(const std::function<bool()>& predicate, std::chrono::milliseconds limit);

 protected:
  /// Delivers the events that wait. When there are none, first waits for some, but no longer than `longest`.
  /// Calls nest. No failure of a handler may leave it.
  virtual void TakeTurn(std::chrono::milliseconds longest) = 0;

 private:
  void Deliver(std::chrono::milliseconds longest);

  std::chrono::nanoseconds lastDelivery_{};
  std::uint64_t deliveries_ = 0;
  int depth_ = 0;
};

/// Runs the handler of a descriptor's event, as a slice of its own.
void RunAsSlice(const EventGuard& guard, LateWork& late, const std::function<void()>& handler);

}  // namespace requite
