// SPDX-License-Identifier: MIT
// The connection that a scan of several sites at a time gets, over real sockets.
#pragma once

#include <memory>
#include <utility>

#include "qt/services/qt_timer.h"
#include "runahead/replay_connection.h"
#include "system/loop_event.h"

namespace requite::test {

/// Nothing is foreseen, so each page is recorded while it is replayed.
class ReplayedConnection : private Forecast, private HostAddresses {
 public:
  ReplayedConnection(std::unique_ptr<requite::Connection> real, DescriptorLoop& loop, const EventGuard& guard)
      : clock_(guard),
        turn_(loop, [this] { Deliver(); }),
        gate_({*this, [&guard] { return std::make_unique<QtTimer>(guard); },
               [] { return std::chrono::milliseconds(0); }}),
        replay_({{std::move(real), std::make_unique<QtTimer>(guard)}, gate_, bytes_, *this, clock_}) {}

  [[nodiscard]] requite::Connection& Connection() { return replay_; }

 private:
  Recording* FindPage(const std::string&) override { return nullptr; }
  Recording* FindGet(const std::string&, std::string_view) override { return nullptr; }
  void Done(Recording&) override {}
  void ConnectionClosed() override {}
  void AskForTurn() override { turn_.Raise(); }
  void Find(const std::string&, const void*, OnFound onFound) override { onFound({}); }
  void Forget(const void*) override {}

  void Deliver() {
    if (delivering_) return;
    struct Delivery {
      explicit Delivery(ReplayedConnection& all) : All(all) { All.delivering_ = true; }
      ~Delivery() {
        All.delivering_ = false;
        if (All.replay_.HasEvent()) All.turn_.Raise();
      }
      ReplayedConnection& All;
    };
    const Delivery delivery(*this);
    replay_.Deliver();
  }

  RecordedBytes bytes_;
  QtTimer clock_;
  LoopEvent turn_;
  HostGate gate_;
  ReplayConnection replay_;
  bool delivering_ = false;
};

}  // namespace requite::test
