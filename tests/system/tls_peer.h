// SPDX-License-Identifier: MIT
// The other end of a secure connection in memory, and certificates that are made when they are needed.
#pragma once

#include <openssl/types.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "system/local_server.h"

namespace requite::test {

struct OpenSslFree {
  void operator()(X509* certificate) const;
  void operator()(EVP_PKEY* key) const;
  void operator()(SSL_CTX* context) const;
  void operator()(SSL* connection) const;
};
template <typename T>
using Owned = std::unique_ptr<T, OpenSslFree>;

struct Certificate {
  Owned<X509> Itself;
  Owned<EVP_PKEY> Key;

  [[nodiscard]] std::string Pem() const;
  /// What its file is called in a folder of authorities.
  [[nodiscard]] std::string HashName() const;
};

struct CertificateWish {
  std::vector<std::string> Names = {};  ///< hosts and addresses that it is for
  int BeginsInDays = -1;
  int EndsInDays = 30;
  bool Authority = false;
  std::string Subject = "a certificate";
};

/// Signed by `issuer`, or by itself when that is null. Throws std::runtime_error when the library refuses.
[[nodiscard]] Certificate MakeCertificate(const CertificateWish& wish, const Certificate* issuer);

enum class ClientCertificate { None, Asked, Demanded };

/// A server's settings, shared by its connections.
struct TlsServer {
  /// Speaks only this version, for example TLS1_3_VERSION. `chain` goes out with the certificate.
  TlsServer(int version, const Certificate& certificate, const std::vector<const Certificate*>& chain = {},
            ClientCertificate wanted = ClientCertificate::None);

  Owned<SSL_CTX> Shared;
};

/// A server's end of one connection.
class ServerEnd {
 public:
  explicit ServerEnd(const TlsServer& server);

  /// Bytes of the client: goes on with the handshake, then collects Request.
  void Feed(std::string_view bytes);
  void Send(std::string_view plain);
  /// Says that it will send no more.
  void SendClosing();
  [[nodiscard]] std::string TakeOutgoing();

  [[nodiscard]] std::string ServerName() const;
  [[nodiscard]] SSL* Library() const { return connection_.get(); }

  std::string Request;

 private:
  Owned<SSL> connection_;
};

/// Shakes hands and reads the request. False when the client has gone before that.
inline bool ReadSecureRequest(ServedConnection& client, ServerEnd& server) {
  while (server.Request.find("\r\n\r\n") == std::string::npos) {
    const std::string bytes = client.ReadSome();
    if (bytes.empty()) return false;
    server.Feed(bytes);
    client.Send(server.TakeOutgoing());
  }
  return true;
}

}  // namespace requite::test
