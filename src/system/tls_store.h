// SPDX-License-Identifier: MIT
// Where the certificates of the trusted authorities are.
#pragma once

#include <string>

namespace requite {

struct TlsStore {
  std::string File;     ///< certificates in PEM form, one after the other; may be missing
  std::string Folders;  ///< separated by ":", each with files named by a certificate's hash; may be missing
};

/// The system's store, or what SSL_CERT_FILE and SSL_CERT_DIR put in its place. For every library that checks
/// certificates, so that all of them trust the same authorities.
[[nodiscard]] TlsStore SystemTlsStore();

/// True when the file can be read and has a certificate, not necessarily at its start.
[[nodiscard]] bool HasCertificate(const std::string& file);

/// True when one of the folders has a certificate that can be found by its hash.
[[nodiscard]] bool HasHashedCertificate(const std::string& folders);

}  // namespace requite
