// SPDX-License-Identifier: MIT
// Makes certificates in memory. The keys are on an elliptic curve, which takes a millisecond.
#include "certificates.h"

#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include <stdexcept>

namespace requite::samples {
namespace {

void Require(bool holds) {
  if (!holds) throw std::runtime_error("a certificate cannot be made");
}

void Extend(X509* certificate, int kind, const std::string& value) {
  X509_EXTENSION* extension = X509V3_EXT_conf_nid(nullptr, nullptr, kind, value.c_str());
  Require(extension != nullptr);
  X509_add_ext(certificate, extension, -1);
  X509_EXTENSION_free(extension);
}

}  // namespace

void OpenSslFree::operator()(X509* certificate) const { X509_free(certificate); }
void OpenSslFree::operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
void OpenSslFree::operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
void OpenSslFree::operator()(SSL* connection) const { SSL_free(connection); }

Authority::Authority() : key_(EVP_EC_gen("P-256")), sitesKey_(EVP_EC_gen("P-256")) {
  Require(key_ && sitesKey_);
  certificate_ = Make("Authority of the sample sites", key_.get(), -60, 30);
  Extend(certificate_.get(), NID_basic_constraints, "critical,CA:TRUE");
  Extend(certificate_.get(), NID_key_usage, "critical,keyCertSign");
  Require(X509_sign(certificate_.get(), key_.get(), EVP_sha256()) > 0);
}

std::string Authority::Pem() const {
  BIO* memory = BIO_new(BIO_s_mem());
  Require(memory != nullptr && PEM_write_bio_X509(memory, certificate_.get()) == 1);
  char* text = nullptr;
  const long size = BIO_get_mem_data(memory, &text);
  std::string pem(text, static_cast<std::size_t>(size));
  BIO_free(memory);
  return pem;
}

Owned<X509> Authority::Issue(const CertificateWish& wish) {
  Owned<X509> made = Make("A sample site", sitesKey_.get(), -30, wish.Expired ? -1 : 30);
  std::string names;
  for (const std::string& name : wish.Names) names += (names.empty() ? "DNS:" : ",DNS:") + name;
  Extend(made.get(), NID_subject_alt_name, names);
  Require(X509_sign(made.get(), key_.get(), EVP_sha256()) > 0);
  return made;
}

Owned<X509> Authority::Make(const std::string& subject, EVP_PKEY* key, int beginsInDays, int endsInDays) {
  Owned<X509> made(X509_new());
  Require(made != nullptr);
  X509_set_version(made.get(), X509_VERSION_3);
  ASN1_INTEGER_set(X509_get_serialNumber(made.get()), ++serial_);
  X509_gmtime_adj(X509_getm_notBefore(made.get()), beginsInDays * 86400L);
  X509_gmtime_adj(X509_getm_notAfter(made.get()), endsInDays * 86400L);
  const auto* text = reinterpret_cast<const unsigned char*>(subject.c_str());
  X509_NAME_add_entry_by_txt(X509_get_subject_name(made.get()), "CN", MBSTRING_ASC, text, -1, -1, 0);
  X509_set_pubkey(made.get(), key);
  // The authority's own certificate is issued by itself.
  const X509* issuer = certificate_ ? certificate_.get() : made.get();
  X509_set_issuer_name(made.get(), X509_get_subject_name(issuer));
  return made;
}

}  // namespace requite::samples
