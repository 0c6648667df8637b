// SPDX-License-Identifier: MIT
// The connection and the timer that a scan gets: they repeat what was recorded ahead of it.
#pragma once

#include <memory>
#include <string>

#include "platform/services.h"
#include "runahead/forecast.h"
#include "runahead/page_recorder.h"

namespace requite {

/// The time-out timer of the scan. While a recording is replayed, its seconds are the ticks: those of the
/// past come at once. Otherwise the clock ticks.
class ReplayTimer : public Timer {
 public:
  explicit ReplayTimer(Timer& clock) : clock_(clock) {}

  void Start(int intervalMilliseconds) override;
  void Stop() override;
  [[nodiscard]] bool IsRunning() const { return isRunning_; }
  void Tick() const;

 private:
  Timer& clock_;
  bool isRunning_ = false;
};

/// Keeps the contract of Connection. Its events come from Deliver alone, never from inside a server's event:
/// a handler of the scan may open a message box, and the lanes must go on meanwhile. A page that was not
/// foreseen is recorded now, and replayed as it comes.
class ReplayConnection : public Connection, private PageRecorder::Owner {
 public:
  /// Bytes given at once, and bytes held for GetData before the recording has to wait.
  static constexpr std::size_t kPiece = std::size_t{128} * 1024;
  static constexpr std::size_t kMostHeld = std::size_t{1024} * 1024;

  struct Needs {
    requite::Line Line;  ///< for pages that were not foreseen
    HostGate& Gate;
    RecordedBytes& Bytes;
    requite::Forecast& Forecast;
    Timer& Clock;
  };

  explicit ReplayConnection(Needs needs);
  ~ReplayConnection() override;
  ReplayConnection(const ReplayConnection&) = delete;
  ReplayConnection& operator=(const ReplayConnection&) = delete;

  void Connect(const std::string& host, std::uint16_t port) override;
  void SendData(std::string_view bytes) override;
  [[nodiscard]] std::string GetData() override;
  void Close() override;
  [[nodiscard]] bool HasAuthorities() override { return recorder_.HasAuthorities(); }

  [[nodiscard]] ReplayTimer& timTimeout() { return timer_; }

  /// Delivers one event. False if nothing waits.
  bool Deliver();
  [[nodiscard]] bool HasEvent() const;
  /// Whether it is in the middle of a recording that the forecast gave.
  [[nodiscard]] bool IsReplaying() const { return playing_ != nullptr && playing_ != live_.get(); }

 private:
  Recording& NewRecording(const std::string& host) override;
  void Play(Recording& recording);
  void GoLive();
  void Drop();
  void TakeConnect();

  Forecast& forecast_;
  RecordedBytes& bytes_;
  PageRecorder recorder_;
  ReplayTimer timer_;
  Recording* playing_ = nullptr;
  std::unique_ptr<Recording> live_;  ///< the page that is recorded now
  std::string host_;
  std::uint16_t port_ = 0;
  std::string resend_;  ///< a request that the scan has made already
  bool established_ = false;
  std::string received_;
};

}  // namespace requite
