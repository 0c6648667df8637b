// SPDX-License-Identifier: MIT
// The certificate authority of the sample sites: made when the server starts, and forgotten when it ends.
#pragma once

#include <openssl/types.h>

#include <memory>
#include <string>

#include "behaviour.h"

namespace requite::samples {

struct OpenSslFree {
  void operator()(X509* certificate) const;
  void operator()(EVP_PKEY* key) const;
  void operator()(SSL_CTX* context) const;
  void operator()(SSL* connection) const;
};
template <typename T>
using Owned = std::unique_ptr<T, OpenSslFree>;

/// Its functions throw std::runtime_error when the library refuses.
class Authority {
 public:
  Authority();

  /// The authority's own certificate, valid for a month, as PEM.
  [[nodiscard]] std::string Pem() const;
  /// A certificate for the key of all sites, good for a month or expired a day ago.
  [[nodiscard]] Owned<X509> Issue(const CertificateWish& wish);
  [[nodiscard]] EVP_PKEY* SitesKey() const { return sitesKey_.get(); }

 private:
  [[nodiscard]] Owned<X509> Make(const std::string& subject, EVP_PKEY* key, int beginsInDays, int endsInDays);

  long serial_ = 0;
  Owned<EVP_PKEY> key_;
  Owned<EVP_PKEY> sitesKey_;
  Owned<X509> certificate_;
};

}  // namespace requite::samples
