// SPDX-License-Identifier: MIT
// The connection that fetches pages: one non-blocking socket at a time.
#pragma once

#include <memory>
#include <optional>

#include "platform/services.h"
#include "system/connect_map.h"
#include "system/name_resolver.h"
#include "system/secure_hosts.h"
#include "system/socket_poller.h"
#include "system/tls_filter.h"

namespace requite {

/// Events come from the loop, one at a time; while a handler runs, the next one waits, even the first
/// one of a Connect made in that handler. An empty or unknown host and a refused or reset connection raise
/// no event. All addresses of a host are tried in turn.
///
/// With secure hosts, a Connect to port 80 may begin with an attempt at port 443. OnConnect then comes after
/// the handshake. An attempt that fails before that goes on with port 80, and no event tells of it. After the
/// handshake the connection ends or breaks like a plain one.
class PageConnection : public Connection {
 public:
  /// Bytes held for GetData before the server has to wait.
  static constexpr std::size_t kMostHeld = 1024 * 1024;

  /// All of them must outlive the connection. Without `secure` every page is asked for over plain HTTP.
  PageConnection(SocketPoller& poller, NameResolver& resolver, const ConnectMap& map,
                 SecureHosts* secure = nullptr);
  ~PageConnection() override;

  void Connect(const std::string& host, std::uint16_t port) override;
  /// Without an established connection the bytes are dropped.
  void SendData(std::string_view bytes) override;
  [[nodiscard]] std::string GetData() override;
  void Close() override;
  [[nodiscard]] bool HasAuthorities() override;

 private:
  enum class State { Closed, Resolving, Connecting, Handshaking, Established };

  void Reach(std::uint16_t port);

  void UseAddresses(const SocketAddresses& addresses);
  void TryNextAddress();
  void OnReady(short readiness);
  void OnConnecting(short readiness);
  void Receive(short readiness);
  void TakeEnd(bool isServersClose);
  void SendRest();
  void DropOutgoing();
  void WaitForServer();
  [[nodiscard]] bool MayReceive() const;
  [[nodiscard]] bool HasSocket() const {
    return state_ == State::Handshaking || state_ == State::Established;
  }

  void BeginSecure();
  void StartPatience();
  void SendEncrypted();
  void DecryptEvents();
  void UsePlain(TlsFailure why);
  void TellCertificateFault();

  SocketPoller& poller_;
  NameResolver& resolver_;
  const ConnectMap& map_;
  SecureHosts* secure_;
  PolledSocket socket_;
  State state_ = State::Closed;
  std::uint64_t serial_ = 0;
  std::string host_;
  std::uint16_t port_ = 0;
  SocketAddresses addresses_;
  std::size_t nextAddress_ = 0;
  std::string outgoing_;
  std::size_t sent_ = 0;  ///< bytes of outgoing_ that the system has taken: paths may be megabytes long
  std::string received_;
  std::unique_ptr<TlsFilter> filter_;     ///< while the connection is secure, or tries to be
  std::optional<PolledSocket> patience_;  ///< the timer of an attempt; made by the first one
  bool reset_ = false;                    ///< a send found that the server had reset the connection
};

}  // namespace requite
