// SPDX-License-Identifier: MIT
// What all secure connections of the program share: the rules, the trusted authorities, the kept sessions.
#pragma once

#include <openssl/types.h>

#include <memory>
#include <optional>
#include <string>

#include "system/tls_sessions.h"
#include "system/tls_store.h"

namespace requite {

struct TlsFree {
  void operator()(SSL_CTX* context) const;
  void operator()(SSL* connection) const;
};

/// TLS 1.2 and later; the server's certificate must lead to an authority of the store. No early data, which
/// would send a request twice; no application protocol, because requests are plain HTTP/1.1; no client
/// certificate; no renegotiation. Nothing is read or allocated before the first use.
class TlsContext {
 public:
  /// Without a store it is the system's.
  explicit TlsContext(std::optional<TlsStore> store = std::nullopt);
  ~TlsContext();
  TlsContext(const TlsContext&) = delete;
  TlsContext& operator=(const TlsContext&) = delete;

  /// False when the store is missing or empty: then no certificate can be trusted.
  [[nodiscard]] bool HasAuthorities();

  /// A client's end without a transport; `host` must outlive it, for its sessions are kept under that name.
  /// Null when the library cannot be set up or memory is short.
  [[nodiscard]] std::unique_ptr<SSL, TlsFree> NewConnection(const std::string& host);

  /// Keeps a session that this connection has got, for the next one to its host.
  void KeepSession(SSL* connection, TlsSession session);
  [[nodiscard]] TlsSessions& Sessions() { return sessions_; }

 private:
  SSL_CTX* Shared();
  const TlsStore& Store();
  void LoadStore();
  static int OnSession(SSL* connection, ssl_session_st* session);

  std::optional<TlsStore> store_;  ///< the system's is found at the first use
  std::unique_ptr<SSL_CTX, TlsFree> shared_;
  TlsSessions sessions_;
};

}  // namespace requite
