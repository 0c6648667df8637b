// SPDX-License-Identifier: MIT
// Why a secure connection failed, and the words for it.
#pragma once

#include <openssl/types.h>

#include <string_view>

namespace requite {

enum class TlsFailure {
  None,
  Expired,          ///< a certificate of the chain, not only the site's own
  NotYetValid,      ///< likewise
  OtherHost,        ///< the certificate names other hosts
  NotTrusted,       ///< no known authority has signed it, or it is not meant for a server
  NotTls,           ///< the first answer was something else, for example plain HTTP
  ProtocolVersion,  ///< the server speaks only versions before TLS 1.2
  Alert,            ///< the server refused, for example because it wants a client certificate
  Cut,              ///< the network ended in the handshake
  Other,
};

/// True when the certificate was the reason, which concerns the user more than the rest.
[[nodiscard]] bool IsCertificateFault(TlsFailure failure);

/// The words for users and logs. Empty for None.
[[nodiscard]] std::string_view Words(TlsFailure failure);

/// Why the last call on this connection failed, from the thread's error queue, which is emptied.
[[nodiscard]] TlsFailure TakeFailure(const SSL& connection);

}  // namespace requite
