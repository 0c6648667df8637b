// SPDX-License-Identifier: MIT
// The library's settings in one place.
#include "system/tls_context.h"

#include <ctime>
#include <utility>

#include "system/late_openssl.h"

namespace requite {
namespace {

/// Real chains have up to four certificates between the site and the authority. A longer one is only work.
constexpr int kMostIntermediates = 10;

void SetRules(SSL_CTX* shared) {
  // The system's own configuration may say less, or more, about versions: these hold.
  SSL_CTX_set_min_proto_version(shared, TLS1_2_VERSION);
  SSL_CTX_set_max_proto_version(shared, 0);
  SSL_CTX_set_options(shared, SSL_OP_NO_COMPRESSION | SSL_OP_NO_RENEGOTIATION);
  SSL_CTX_set_mode(shared, SSL_MODE_RELEASE_BUFFERS | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
  SSL_CTX_set_verify(shared, SSL_VERIFY_PEER, nullptr);
  SSL_CTX_set_verify_depth(shared, kMostIntermediates);
  SSL_CTX_set_session_cache_mode(shared, SSL_SESS_CACHE_CLIENT | SSL_SESS_CACHE_NO_INTERNAL);
}

}  // namespace

void TlsFree::operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
void TlsFree::operator()(SSL* connection) const { SSL_free(connection); }

TlsContext::TlsContext(std::optional<TlsStore> store) : store_(std::move(store)) {}
TlsContext::~TlsContext() = default;

SSL_CTX* TlsContext::Shared() {
  if (shared_) return shared_.get();
  shared_.reset(SSL_CTX_new(TLS_client_method()));
  if (shared_) {
    SetRules(shared_.get());
    SSL_CTX_set_app_data(shared_.get(), this);
    SSL_CTX_sess_set_new_cb(shared_.get(), OnSession);
    LoadStore();
  }
  ERR_clear_error();
  return shared_.get();
}

const TlsStore& TlsContext::Store() {
  if (!store_) store_ = SystemTlsStore();
  return *store_;
}

/// A missing file or folder is no failure here: HasAuthorities tells. Certificates of folders are read when a
/// chain needs them, which saves the reading of all of them at the start.
void TlsContext::LoadStore() {
  const auto& [file, folders] = Store();
  if (!file.empty()) SSL_CTX_load_verify_file(shared_.get(), file.c_str());
  if (!folders.empty()) SSL_CTX_load_verify_dir(shared_.get(), folders.c_str());
}

bool TlsContext::HasAuthorities() {
  SSL_CTX* shared = Shared();
  if (shared == nullptr) return false;
  const auto* loaded = X509_STORE_get0_objects(SSL_CTX_get_cert_store(shared));
  return sk_X509_OBJECT_num(loaded) > 0 || HasHashedCertificate(Store().Folders);
}

std::unique_ptr<SSL, TlsFree> TlsContext::NewConnection(const std::string& host) {
  SSL_CTX* shared = Shared();
  if (shared == nullptr) return nullptr;
  std::unique_ptr<SSL, TlsFree> connection(SSL_new(shared));
  if (!connection) return nullptr;
  SSL_set_connect_state(connection.get());
  SSL_set_app_data(connection.get(), const_cast<std::string*>(&host));
  if (SSL_SESSION* session = sessions_.Find(host)) SSL_set_session(connection.get(), session);
  return connection;
}

/// A session that renews another one rests on the same check of the certificate.
void TlsContext::KeepSession(SSL* connection, TlsSession session) {
  const auto& host = *static_cast<const std::string*>(SSL_get_app_data(connection));
  const bool resumed = SSL_session_reused(connection) == 1;
  sessions_.Keep(host, std::move(session), resumed ? sessions_.Checked(host) : std::time(nullptr));
}

/// With TLS 1.3 a session comes only after the handshake, often more than one: the newest is kept.
int TlsContext::OnSession(SSL* connection, SSL_SESSION* session) {
  constexpr int kTaken = 1;
  auto* context = static_cast<TlsContext*>(SSL_CTX_get_app_data(SSL_get_SSL_CTX(connection)));
  context->KeepSession(connection, TlsSession(session));
  return kTaken;
}

}  // namespace requite
