// SPDX-License-Identifier: MIT
// The secure side of the sample server: connections over TLS, with the certificate of the site that is asked
// for.
#pragma once

#include <openssl/types.h>

#include <map>
#include <memory>
#include <string>

#include "certificates.h"
#include "channel.h"
#include "response.h"

namespace requite::samples {

class SecureSide {
 public:
  /// Makes an authority. Throws std::runtime_error when the library refuses.
  explicit SecureSide(Sites sites);
  SecureSide(const SecureSide&) = delete;
  SecureSide& operator=(const SecureSide&) = delete;

  [[nodiscard]] std::string AuthorityPem() const { return authority_.Pem(); }
  /// Takes a client into its care. The channel must not outlive this object.
  [[nodiscard]] std::unique_ptr<Channel> Open(Descriptor socket);

 private:
  static int TakeCertificate(SSL* connection, int* alert, void* self);
  /// Null for a host that has no secure pages.
  X509* CertificateFor(const std::string& host);

  Sites sites_;
  Authority authority_;
  Owned<SSL_CTX> context_;
  std::map<std::string, Owned<X509>>
      certificates_;  ///< by the content of "certificate.txt", so there are few
};

}  // namespace requite::samples
