// SPDX-License-Identifier: MIT
// The connection that a scan of several sites at a time gets, over real sockets.
#pragma once

#include <memory>
#include <utility>

#include "qt/services/qt_event_loop.h"
#include "qt/services/qt_timer.h"
#include "runahead/replay_connection.h"
#include "system/loop_event.h"

namespace requite::test {

/// Nothing is foreseen, so each page is recorded while it is replayed, unless it is to be recorded first.
class ReplayedConnection : private Forecast, private HostAddresses {
 public:
  ReplayedConnection(std::unique_ptr<requite::Connection> real, DescriptorLoop& loop, const EventGuard& guard)
      : clock_(guard),
        turn_(loop, [this] { Deliver(); }),
        gate_({*this, [&guard] { return std::make_unique<QtTimer>(guard); },
               [] { return std::chrono::milliseconds(0); }}),
        replay_(*this, {{std::move(real), std::make_unique<QtTimer>(guard)}, gate_, bytes_, *this, clock_}) {}

  /// Each Connect then waits until its page has been recorded, if that ends soon.
  void RecordFirst(std::unique_ptr<requite::Connection> ahead, const EventGuard& guard, QtEventLoop& loop) {
    ahead_ = std::make_unique<Ahead>(Line{std::move(ahead), std::make_unique<QtTimer>(guard)}, *this, loop);
  }

  [[nodiscard]] requite::Connection& Connection() { return replay_; }

 private:
  class Replay : public ReplayConnection {
   public:
    Replay(ReplayedConnection& all, Needs needs) : ReplayConnection(std::move(needs)), all_(all) {}
    void Connect(const std::string& host, std::uint16_t port) override {
      Close();
      if (all_.ahead_) all_.ahead_->Record(host, port);
      ReplayConnection::Connect(host, port);
    }

   private:
    ReplayedConnection& all_;
  };

  /// Asks for pages as the scan will.
  class Ahead : private PageRecorder::Owner, private ConnectionEvents {
   public:
    Ahead(Line line, ReplayedConnection& all, QtEventLoop& loop)
        : all_(all), loop_(loop), recorder_(std::move(line), all.gate_, *this) {
      recorder_.Events = this;
    }
    void Record(const std::string& host, std::uint16_t port) {
      recorder_.Connect(host, port);
      loop_.RunUntil([this] { return Page->Over(); }, std::chrono::milliseconds(50));
    }

    std::unique_ptr<Recording> Page;

   private:
    Recording& NewRecording(const std::string& host) override {
      Page = std::make_unique<Recording>(Recording::KeyOfPage(host, {}, false), all_.bytes_);
      return *Page;
    }
    void OnConnect() override { recorder_.SendData("GET / HTTP/1.1\r\n\r\n"); }
    void OnDataArrival(std::size_t) override { static_cast<void>(recorder_.GetData()); }
    void OnClose() override {}

    ReplayedConnection& all_;
    QtEventLoop& loop_;
    PageRecorder recorder_;
  };

  Recording* FindPage(const std::string&) override { return ahead_ ? ahead_->Page.get() : nullptr; }
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
  std::unique_ptr<Ahead> ahead_;
  Replay replay_;
  bool delivering_ = false;
};

}  // namespace requite::test
