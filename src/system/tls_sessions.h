// SPDX-License-Identifier: MIT
// The newest session of each host, so that the next connection needs only a short handshake.
#pragma once

#include <ctime>
#include <list>
#include <memory>
#include <string>
#include <string_view>

struct ssl_session_st;  // the library's header with its name is a large one

namespace requite {

struct TlsSessionFree {
  void operator()(ssl_session_st* session) const;
};
using TlsSession = std::unique_ptr<ssl_session_st, TlsSessionFree>;

class TlsSessions {
 public:
  /// Some kilobytes each, most of it the server's certificates.
  static constexpr std::size_t kMostHosts = 256;
  /// A resumed connection does not check the certificate again, so after this time a full handshake must.
  static constexpr std::time_t kMostSeconds = 3600;

  /// The host's session, or null without a usable one. It stays kept: servers that give a new
  /// one for each connection replace it, the others accept it again.
  [[nodiscard]] ssl_session_st* Find(std::string_view host);
  /// When the certificate was checked that the host's session rests on; 0 without a session.
  [[nodiscard]] std::time_t Checked(std::string_view host) const;
  /// Replaces the host's session; the host that was not used for the longest time gives way.
  void Keep(std::string_view host, TlsSession session, std::time_t checked);
  void Forget(std::string_view host);
  [[nodiscard]] std::size_t Hosts() const { return kept_.size(); }

 private:
  struct Kept {
    std::string Host;
    TlsSession Session;
    std::time_t Checked;
  };

  [[nodiscard]] std::list<Kept>::const_iterator Place(std::string_view host) const;

  std::list<Kept> kept_;  ///< the one used last is first
};

}  // namespace requite
