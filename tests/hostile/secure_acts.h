// SPDX-License-Identifier: MIT
// The acts that hostile secure servers share, and their certificates.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "hostile/behaviour.h"
#include "system/tls_peer.h"

namespace requite::hostile {

using test::ServerEnd;
using test::TlsServer;

/// The authority that the scans trust, in PEM form.
[[nodiscard]] std::string TrustedAuthority();

/// Servers of this version for all sites "NAME.secure.example".
[[nodiscard]] const TlsServer& GoodServer(int version);
/// A server whose certificate was wished for otherwise; signed by the trusted authority, or by itself.
[[nodiscard]] const TlsServer& ServerWith(int version, const test::CertificateWish& wish,
                                          bool selfSigned = false);

/// What a server does after the handshake and the request. What it has written is sent when it is over.
using SecureAct = std::function<void(ServerEnd&, ServedConnection&)>;
[[nodiscard]] Act Securely(const TlsServer& server, SecureAct act);
/// Sends the bytes, says farewell, closes.
[[nodiscard]] SecureAct SecureAnswer(std::string bytes);
/// Sends these bytes of its own in the place of its first message, then stays.
[[nodiscard]] Act HelloAndStay(std::string bytes);
/// Sends so much of its first messages, then stays.
[[nodiscard]] Act StallInHandshake(const TlsServer& server, std::size_t bytes);
/// Sends all that it has written but the last bytes, then stays.
[[nodiscard]] SecureAct StallInRecord(std::string bytes);

/// Sends what the server has written. False when the client takes no more.
bool Flush(ServerEnd& server, ServedConnection& client);

}  // namespace requite::hostile
