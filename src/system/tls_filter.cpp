// SPDX-License-Identifier: MIT
// The library between two buffers in memory, which it takes for the network.
#include "system/tls_filter.h"

#include <arpa/inet.h>

#include <algorithm>
#include <array>

#include "platform/text.h"
#include "system/late_openssl.h"

namespace requite {
namespace {

constexpr std::size_t kLongestName = 253;

std::string_view WithoutBrackets(std::string_view host) {
  if (host.size() > 2 && host.front() == '[' && host.back() == ']') return host.substr(1, host.size() - 2);
  return host;
}

bool IsAddress(const std::string& host) {
  std::array<unsigned char, sizeof(in6_addr)> address;
  return ::inet_pton(AF_INET, host.c_str(), address.data()) == 1 ||
         ::inet_pton(AF_INET6, host.c_str(), address.data()) == 1;
}

/// One form for the name that is sent, compared and kept, however it was written.
std::string HostName(std::string_view host) {
  host = WithoutBrackets(host);
  if (host.size() > 1 && host.back() == '.') host.remove_suffix(1);
  return Lower(host);
}

bool IsNameByte(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') || byte == '-' || byte == '_' ||
         byte == '.';
}

/// An empty name would switch the library's check off, and one that begins with a dot would match any name
/// that ends so.
bool IsCheckable(const std::string& name) {
  if (name.empty() || name.size() > kLongestName || name.find('\0') != std::string::npos) return false;
  return IsAddress(name) || (name.front() != '.' && std::all_of(name.begin(), name.end(), IsNameByte));
}

}  // namespace

bool IsTlsHost(std::string_view host) { return IsCheckable(HostName(host)); }

TlsFilter::TlsFilter(TlsContext& context, std::string_view host) : context_(context), host_(HostName(host)) {
  if (Prepare(context)) {
    Handshake();
  } else {
    Fail(TlsFailure::Other);
  }
}

TlsFilter::~TlsFilter() {
  // Otherwise the library takes the end of this object for a broken connection and spoils its session.
  if (connection_) SSL_set_shutdown(connection_.get(), SSL_SENT_SHUTDOWN | SSL_RECEIVED_SHUTDOWN);
}

bool TlsFilter::Prepare(TlsContext& context) {
  if (!IsCheckable(host_)) return false;
  connection_ = context.NewConnection(host_);
  if (!connection_) return false;
  BIO* in = BIO_new(BIO_s_mem());
  BIO* out = BIO_new(BIO_s_mem());
  if (in == nullptr || out == nullptr) {
    BIO_free(in);
    BIO_free(out);
    return false;
  }
  SSL_set_bio(connection_.get(), in, out);
  return CheckHost();
}

/// An address is compared as an address; it is never sent as a server's name.
bool TlsFilter::CheckHost() {
  X509_VERIFY_PARAM* rules = SSL_get0_param(connection_.get());
  if (IsAddress(host_)) return X509_VERIFY_PARAM_set1_ip_asc(rules, host_.c_str()) == 1;
  X509_VERIFY_PARAM_set_hostflags(rules, X509_CHECK_FLAG_NO_PARTIAL_WILDCARDS);
  return X509_VERIFY_PARAM_set1_host(rules, host_.data(), host_.size()) == 1 &&
         SSL_set_tlsext_host_name(connection_.get(), host_.c_str()) == 1;
}

void TlsFilter::Feed(std::string_view bytes) {
  if (bytes.empty() || networkEnded_ || Over()) return;
  std::size_t taken = 0;
  BIO_write_ex(SSL_get_rbio(connection_.get()), bytes.data(), bytes.size(), &taken);
  if (taken != bytes.size()) {
    Fail(TlsFailure::Other);
  } else if (state_ == TlsState::Handshaking) {
    Handshake();
  }
}

void TlsFilter::FeedEnd() {
  networkEnded_ = true;
  if (state_ == TlsState::Handshaking) Fail(TlsFailure::Cut);
}

void TlsFilter::Handshake() {
  ERR_clear_error();
  const int result = SSL_do_handshake(connection_.get());
  if (result == 1) {
    state_ = TlsState::Open;
    handshakeIsComplete_ = true;
    // With TLS 1.2 a server may renew the ticket within the handshake. The library then spoils the old
    // session and tells nobody of the new one.
    if (Resumed()) context_.KeepSession(connection_.get(), TlsSession(SSL_get1_session(connection_.get())));
    SendWaiting();
  } else {
    Pause(result);
  }
}

void TlsFilter::Write(std::string_view plain) {
  if (networkEnded_ || Over()) return;
  waiting_.append(plain);
  SendWaiting();
}

/// While a message of the handshake's kind, for example a ticket, has come in part only, the library takes
/// nothing: the bytes wait for the rest of it.
void TlsFilter::SendWaiting() {
  if (waiting_.empty() || state_ != TlsState::Open) return;
  ERR_clear_error();
  std::size_t taken = 0;
  const int result = SSL_write_ex(connection_.get(), waiting_.data(), waiting_.size(), &taken);
  if (result == 1) {
    waiting_.clear();
  } else {
    Pause(result);
  }
}

std::string TlsFilter::TakeOutgoing() {
  if (!connection_) return {};
  BIO* network = SSL_get_wbio(connection_.get());
  std::string bytes(BIO_ctrl_pending(network), '\0');
  std::size_t taken = 0;
  if (!bytes.empty()) BIO_read_ex(network, bytes.data(), bytes.size(), &taken);
  bytes.resize(taken);
  return bytes;
}

std::size_t TlsFilter::TakePlain(std::string& into, std::size_t most) {
  std::array<char, kRecord> piece;
  const std::size_t before = into.size();
  while (state_ == TlsState::Open && into.size() - before < most) {
    ERR_clear_error();
    const std::size_t room = std::min(piece.size(), most - (into.size() - before));
    std::size_t taken = 0;
    const int result = SSL_read_ex(connection_.get(), piece.data(), room, &taken);
    into.append(piece.data(), taken);
    if (result != 1) {
      Pause(result);
      break;
    }
  }
  SendWaiting();
  return into.size() - before;
}

void TlsFilter::Pause(int result) {
  switch (SSL_get_error(connection_.get(), result)) {
    case SSL_ERROR_WANT_READ:
      if (networkEnded_) state_ = TlsState::Ended;
      return;
    case SSL_ERROR_ZERO_RETURN: state_ = TlsState::Ended; return;
    default: Fail(TakeFailure(*connection_)); return;
  }
}

void TlsFilter::Fail(TlsFailure failure) {
  // A session that was offered may have been the reason: the next connection begins without one.
  if (state_ == TlsState::Handshaking) context_.Sessions().Forget(host_);
  state_ = TlsState::Failed;
  failure_ = failure;
}

bool TlsFilter::Resumed() const { return connection_ && SSL_session_reused(connection_.get()) == 1; }

}  // namespace requite
