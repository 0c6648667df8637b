// SPDX-License-Identifier: MIT
// A short list: to search it costs nothing beside a handshake.
#include "system/tls_sessions.h"

#include <algorithm>
#include <utility>

#include "system/late_openssl.h"

namespace requite {

void TlsSessionFree::operator()(SSL_SESSION* session) const { SSL_SESSION_free(session); }

std::list<TlsSessions::Kept>::const_iterator TlsSessions::Place(std::string_view host) const {
  return std::find_if(kept_.begin(), kept_.end(), [&](const Kept& kept) { return kept.Host == host; });
}

SSL_SESSION* TlsSessions::Find(std::string_view host) {
  const auto found = Place(host);
  if (found == kept_.end()) return nullptr;
  const std::time_t age = std::time(nullptr) - found->Checked;
  // The library spoils a session itself when its connection breaks with a fatal alert.
  if (age < 0 || age > kMostSeconds || SSL_SESSION_is_resumable(found->Session.get()) == 0) {
    kept_.erase(found);
    return nullptr;
  }
  kept_.splice(kept_.begin(), kept_, found);
  return kept_.front().Session.get();
}

std::time_t TlsSessions::Checked(std::string_view host) const {
  const auto found = Place(host);
  return found == kept_.end() ? 0 : found->Checked;
}

void TlsSessions::Keep(std::string_view host, TlsSession session, std::time_t checked) {
  Forget(host);
  kept_.push_front({std::string(host), std::move(session), checked});
  if (kept_.size() > kMostHosts) kept_.pop_back();
}

void TlsSessions::Forget(std::string_view host) {
  kept_.remove_if([&](const Kept& kept) { return kept.Host == host; });
}

}  // namespace requite
