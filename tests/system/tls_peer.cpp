// SPDX-License-Identifier: MIT
// The library's own server between two buffers, and its certificates.
#include "system/tls_peer.h"

#include <openssl/ec.h>
#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include <array>
#include <cstdio>
#include <stdexcept>

namespace requite::test {
namespace {

void Require(bool holds) {
  if (!holds) throw std::runtime_error("the library refuses a certificate or a server of the test");
}

void AddNames(X509* certificate, const std::vector<std::string>& names) {
  GENERAL_NAMES* all = sk_GENERAL_NAME_new_null();
  for (const std::string& name : names) {
    GENERAL_NAME* one = GENERAL_NAME_new();
    if (ASN1_OCTET_STRING* address = a2i_IPADDRESS(name.c_str())) {
      GENERAL_NAME_set0_value(one, GEN_IPADD, address);
    } else {
      ASN1_IA5STRING* text = ASN1_IA5STRING_new();
      ASN1_STRING_set(text, name.data(), static_cast<int>(name.size()));  // a NUL is a byte like any other
      GENERAL_NAME_set0_value(one, GEN_DNS, text);
    }
    sk_GENERAL_NAME_push(all, one);
  }
  Require(X509_add1_ext_i2d(certificate, NID_subject_alt_name, all, 0, X509V3_ADD_DEFAULT) == 1);
  GENERAL_NAMES_free(all);
}

void MakeAuthority(X509* certificate) {
  BASIC_CONSTRAINTS* constraints = BASIC_CONSTRAINTS_new();
  constraints->ca = 0xFF;
  Require(X509_add1_ext_i2d(certificate, NID_basic_constraints, constraints, 1, X509V3_ADD_DEFAULT) == 1);
  BASIC_CONSTRAINTS_free(constraints);
}

}  // namespace

void OpenSslFree::operator()(X509* certificate) const { X509_free(certificate); }
void OpenSslFree::operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
void OpenSslFree::operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
void OpenSslFree::operator()(SSL* connection) const { SSL_free(connection); }

std::string Certificate::Pem() const {
  BIO* memory = BIO_new(BIO_s_mem());
  PEM_write_bio_X509(memory, Itself.get());
  std::string text(BIO_ctrl_pending(memory), '\0');
  BIO_read(memory, text.data(), static_cast<int>(text.size()));
  BIO_free(memory);
  return text;
}

std::string Certificate::HashName() const {
  std::array<char, 16> name;
  std::snprintf(name.data(), name.size(), "%08lx.0", X509_subject_name_hash(Itself.get()));
  return name.data();
}

Certificate MakeCertificate(const CertificateWish& wish, const Certificate* issuer) {
  static long serial = 0;
  Certificate made{Owned<X509>(X509_new()), Owned<EVP_PKEY>(EVP_EC_gen("P-256"))};
  X509* certificate = made.Itself.get();
  X509_set_version(certificate, X509_VERSION_3);
  ASN1_INTEGER_set(X509_get_serialNumber(certificate), ++serial);
  X509_gmtime_adj(X509_getm_notBefore(certificate), wish.BeginsInDays * 86400L);
  X509_gmtime_adj(X509_getm_notAfter(certificate), wish.EndsInDays * 86400L);
  const auto* subject = reinterpret_cast<const unsigned char*>(wish.Subject.c_str());
  X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate), "CN", MBSTRING_ASC, subject,
                             static_cast<int>(wish.Subject.size()), -1, 0);
  X509_set_pubkey(certificate, made.Key.get());
  if (!wish.Names.empty()) AddNames(certificate, wish.Names);
  if (wish.Authority) MakeAuthority(certificate);
  const Certificate& signer = issuer != nullptr ? *issuer : made;
  X509_set_issuer_name(certificate, X509_get_subject_name(signer.Itself.get()));
  Require(X509_sign(certificate, signer.Key.get(), EVP_sha256()) > 0);
  return made;
}

TlsServer::TlsServer(int version, const Certificate& certificate,
                     const std::vector<const Certificate*>& chain, ClientCertificate wanted)
    : Shared(SSL_CTX_new(TLS_server_method())) {
  SSL_CTX* shared = Shared.get();
  SSL_CTX_set_security_level(shared, 0);  // else no version before 1.2 would be offered
  Require(SSL_CTX_set_min_proto_version(shared, version) == 1 &&
          SSL_CTX_set_max_proto_version(shared, version) == 1 &&
          SSL_CTX_use_certificate(shared, certificate.Itself.get()) == 1 &&
          SSL_CTX_use_PrivateKey(shared, certificate.Key.get()) == 1);
  for (const Certificate* other : chain) SSL_CTX_add1_chain_cert(shared, other->Itself.get());
  if (wanted == ClientCertificate::None) return;
  const int demand = wanted == ClientCertificate::Demanded ? SSL_VERIFY_FAIL_IF_NO_PEER_CERT : 0;
  SSL_CTX_set_verify(shared, SSL_VERIFY_PEER | demand, nullptr);
  SSL_CTX_set_session_id_context(shared, reinterpret_cast<const unsigned char*>("test"), 4);
}

ServerEnd::ServerEnd(const TlsServer& server) : connection_(SSL_new(server.Shared.get())) {
  SSL_set_accept_state(connection_.get());
  SSL_set_bio(connection_.get(), BIO_new(BIO_s_mem()), BIO_new(BIO_s_mem()));
}

void ServerEnd::Feed(std::string_view bytes) {
  BIO_write(SSL_get_rbio(connection_.get()), bytes.data(), static_cast<int>(bytes.size()));
  std::array<char, 4096> piece;
  std::size_t taken = 0;
  while (SSL_read_ex(connection_.get(), piece.data(), piece.size(), &taken) == 1) {
    Request.append(piece.data(), taken);
  }
  ERR_clear_error();
}

void ServerEnd::Send(std::string_view plain) {
  SSL_write(connection_.get(), plain.data(), static_cast<int>(plain.size()));
}

void ServerEnd::SendClosing() { SSL_shutdown(connection_.get()); }

std::string ServerEnd::TakeOutgoing() {
  BIO* network = SSL_get_wbio(connection_.get());
  std::string bytes(BIO_ctrl_pending(network), '\0');
  if (!bytes.empty()) BIO_read(network, bytes.data(), static_cast<int>(bytes.size()));
  return bytes;
}

std::string ServerEnd::ServerName() const {
  const char* name = SSL_get_servername(connection_.get(), TLSEXT_NAMETYPE_host_name);
  return name != nullptr ? name : "";
}

}  // namespace requite::test
