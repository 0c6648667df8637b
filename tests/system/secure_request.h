// SPDX-License-Identifier: MIT
// A secure server's first steps on a served connection.
#pragma once

#include <string>

#include "system/local_server.h"
#include "system/tls_peer.h"

namespace requite::test {

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
