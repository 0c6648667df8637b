// SPDX-License-Identifier: MIT
// The connection that fetches pages: one non-blocking socket at a time.
#pragma once

#include "platform/services.h"
#include "system/connect_map.h"
#include "system/name_resolver.h"
#include "system/socket_poller.h"

namespace requite {

/// Events come from the loop, one at a time; while a handler runs, the next one waits, even the first
/// one of a Connect made in that handler. An empty or unknown host and a refused or reset connection raise
/// no event. All addresses of a host are tried in turn.
class PageConnection : public Connection {
 public:
  /// Bytes held for GetData before the server has to wait.
  static constexpr std::size_t kMostHeld = 1024 * 1024;

  /// All three must outlive the connection.
  PageConnection(SocketPoller& poller, NameResolver& resolver, const ConnectMap& map);
  ~PageConnection() override;

  void Connect(const std::string& host, std::uint16_t port) override;
  /// Without an established connection the bytes are dropped.
  void SendData(std::string_view bytes) override;
  [[nodiscard]] std::string GetData() override;
  void Close() override;

 private:
  enum class State { Closed, Resolving, Connecting, Established };

  void UseAddresses(const SocketAddresses& addresses);
  void TryNextAddress();
  void OnReady(short readiness);
  void OnConnecting(short readiness);
  void Receive(short readiness);
  void SendRest();
  void DropOutgoing();
  void WaitForServer();

  NameResolver& resolver_;
  const ConnectMap& map_;
  PolledSocket socket_;
  State state_ = State::Closed;
  std::uint64_t serial_ = 0;
  std::uint16_t port_ = 0;
  SocketAddresses addresses_;
  std::size_t nextAddress_ = 0;
  std::string outgoing_;
  std::size_t sent_ = 0;  ///< bytes of outgoing_ that the system has taken: paths may be megabytes long
  std::string received_;
  bool reset_ = false;  ///< a send found that the server had reset the connection
};

}  // namespace requite
