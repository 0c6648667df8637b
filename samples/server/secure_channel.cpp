// SPDX-License-Identifier: MIT
// Each connection begins with the handshake, which the first calls of Receive carry out.
#include "secure_channel.h"

#include <openssl/err.h>
#include <openssl/ssl.h>

#include <exception>
#include <stdexcept>
#include <utility>

namespace requite::samples {
namespace {

class SecureChannel : public Channel {
 public:
  SecureChannel(Descriptor socket, SSL_CTX* context)
      : Channel(std::move(socket)), connection_(SSL_new(context)) {
    if (!connection_ || SSL_set_fd(connection_.get(), Socket()) != 1) throw std::bad_alloc();
    SSL_set_accept_state(connection_.get());
  }

  std::ptrdiff_t Receive(std::span<char> bytes) override {
    std::size_t count = 0;
    const int result = SSL_read_ex(connection_.get(), bytes.data(), bytes.size(), &count);
    return Moved(result, count, SSL_ERROR_WANT_READ);
  }

  std::ptrdiff_t Send(std::string_view bytes) override {
    std::size_t count = 0;
    const int result = SSL_write_ex(connection_.get(), bytes.data(), bytes.size(), &count);
    return Moved(result, count, SSL_ERROR_WANT_WRITE);
  }

  void EndSending() override {
    SSL_shutdown(connection_.get());
    ERR_clear_error();
    Channel::EndSending();
  }

 private:
  /// A client that has no room for an answer in the middle of its own sending gets none.
  std::ptrdiff_t Moved(int result, std::size_t count, int waiting) {
    if (result == 1) return static_cast<std::ptrdiff_t>(count);
    const bool waits = SSL_get_error(connection_.get(), result) == waiting;
    ERR_clear_error();
    return waits ? 0 : kGone;
  }

  Owned<SSL> connection_;
};

}  // namespace

SecureSide::SecureSide(Sites sites) : sites_(std::move(sites)), context_(SSL_CTX_new(TLS_server_method())) {
  if (!context_) throw std::runtime_error("no secure connections");
  SSL_CTX_set_min_proto_version(context_.get(), TLS1_2_VERSION);
  SSL_CTX_set_options(context_.get(), SSL_OP_NO_RENEGOTIATION);
  SSL_CTX_set_mode(context_.get(), SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
  SSL_CTX_set_tlsext_servername_callback(context_.get(), &SecureSide::TakeCertificate);
  SSL_CTX_set_tlsext_servername_arg(context_.get(), this);
}

std::unique_ptr<Channel> SecureSide::Open(Descriptor socket) {
  return std::make_unique<SecureChannel>(std::move(socket), context_.get());
}

/// The library calls this with the name of the host, and cannot take an exception.
int SecureSide::TakeCertificate(SSL* connection, int* alert, void* self) try {
  auto& side = *static_cast<SecureSide*>(self);
  const char* host = SSL_get_servername(connection, TLSEXT_NAMETYPE_host_name);
  X509* certificate = host == nullptr ? nullptr : side.CertificateFor(host);
  if (certificate != nullptr && SSL_use_certificate(connection, certificate) == 1 &&
      SSL_use_PrivateKey(connection, side.authority_.SitesKey()) == 1) {
    return SSL_TLSEXT_ERR_OK;
  }
  *alert = SSL_AD_UNRECOGNIZED_NAME;
  return SSL_TLSEXT_ERR_ALERT_FATAL;
} catch (const std::exception&) {
  *alert = SSL_AD_INTERNAL_ERROR;
  return SSL_TLSEXT_ERR_ALERT_FATAL;
}

X509* SecureSide::CertificateFor(const std::string& host) {
  const std::optional<CertificateWish> wish = sites_.CertificateOf(host);
  if (!wish) return nullptr;
  std::string key(wish->Expired ? "expired" : "good");
  for (const std::string& name : wish->Names) key += ' ' + name;
  Owned<X509>& certificate = certificates_[key];
  if (!certificate) certificate = authority_.Issue(*wish);
  return certificate.get();
}

}  // namespace requite::samples
