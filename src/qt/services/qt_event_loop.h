// SPDX-License-Identifier: MIT
// The program's event loop, on Qt's.
#pragma once

#include <chrono>
#include <functional>

#include "platform/services.h"

namespace requite {

/// Needs a QCoreApplication (or a derived class) during its whole life.
class QtEventLoop : public EventLoop {
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

 private:
  void Deliver(int flags);

  std::chrono::nanoseconds lastDelivery_{};
  std::uint64_t deliveries_ = 0;
  int depth_ = 0;
};

}  // namespace requite
