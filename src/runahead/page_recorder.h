// SPDX-License-Identifier: MIT
// A connection that keeps what it tells.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "platform/services.h"
#include "runahead/host_gate.h"
#include "runahead/recording.h"

namespace requite {

/// A connection and the timer of its seconds.
struct Line {
  std::unique_ptr<requite::Connection> Connection;
  std::unique_ptr<Timer> Seconds;
};

/// Waits for its place at the gate, connects, records what happens, and passes it on to `Events` if there are
/// any. Seconds count from the connect, not from the wait.
class PageRecorder : public Connection, private ConnectionEvents {
 public:
  class Owner {
   public:
    virtual ~Owner() = default;
    /// The recording of a page that is asked for now. It must live until the next call or Close.
    virtual Recording& NewRecording(const std::string& host) = 0;
    /// A second has passed, and is recorded.
    virtual void OnSecond() {}
  };

  /// No page is longer.
  static constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;

  PageRecorder(Line line, HostGate& gate, Owner& owner);
  ~PageRecorder() override;
  PageRecorder(const PageRecorder&) = delete;
  PageRecorder& operator=(const PageRecorder&) = delete;

  void Connect(const std::string& host, std::uint16_t port) override;
  void SendData(std::string_view bytes) override;
  [[nodiscard]] std::string GetData() override { return std::exchange(received_, {}); }
  /// The recording is over.
  void Close() override;
  [[nodiscard]] bool HasAuthorities() override { return line_.Connection->HasAuthorities(); }

  /// A page is asked for and has not ended.
  [[nodiscard]] bool IsBusy() const { return recording_ != nullptr; }
  void SetRank(std::uint64_t rank);

 private:
  void OnConnect() override;
  void OnDataArrival(std::size_t bytesTotal) override;
  void OnClose() override;
  void OnCertificateFault(const std::string& host, std::string_view words) override;
  void GiveUp();
  void End();

  Line line_;
  HostGate& gate_;
  Owner& owner_;
  HostGate::Place place_;
  std::uint64_t rank_ = 0;
  Recording* recording_ = nullptr;
  std::string host_;
  std::uint16_t port_ = 0;
  std::size_t recordedBytes_ = 0;  ///< of this page
  std::string received_;
};

}  // namespace requite
