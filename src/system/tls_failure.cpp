// SPDX-License-Identifier: MIT
// The library's many errors, sorted into the few that make a difference to the program.
#include "system/tls_failure.h"

#include "system/late_openssl.h"

namespace requite {
namespace {

TlsFailure CertificateFault(long verdict) {
  switch (verdict) {
    case X509_V_ERR_CERT_HAS_EXPIRED: return TlsFailure::Expired;
    case X509_V_ERR_CERT_NOT_YET_VALID: return TlsFailure::NotYetValid;
    case X509_V_ERR_HOSTNAME_MISMATCH:
    case X509_V_ERR_IP_ADDRESS_MISMATCH: return TlsFailure::OtherHost;
    default: return TlsFailure::NotTrusted;
  }
}

bool IsVersionError(int reason) {
  switch (reason) {
    case SSL_R_UNSUPPORTED_PROTOCOL:
    case SSL_R_VERSION_TOO_LOW:
    case SSL_R_WRONG_SSL_VERSION:
    case SSL_R_TLSV1_ALERT_PROTOCOL_VERSION: return true;
    default: return false;
  }
}

}  // namespace

bool IsCertificateFault(TlsFailure failure) {
  return failure == TlsFailure::Expired || failure == TlsFailure::NotYetValid ||
         failure == TlsFailure::OtherHost || failure == TlsFailure::NotTrusted;
}

std::string_view Words(TlsFailure failure) {
  switch (failure) {
    case TlsFailure::None: return "";
    case TlsFailure::Expired: return "Certificate has expired";
    case TlsFailure::NotYetValid: return "Certificate is not yet valid";
    case TlsFailure::OtherHost: return "Certificate is for another host";
    case TlsFailure::NotTrusted: return "Certificate is not trusted";
    case TlsFailure::NotTls: return "Not a secure server";
    case TlsFailure::ProtocolVersion: return "Only outdated secure connections";
    case TlsFailure::Alert: return "Secure connection refused";
    case TlsFailure::Cut: return "Secure connection cut off";
    case TlsFailure::Other: return "Secure connection failed";
  }
  return "";
}

TlsFailure TakeFailure(const SSL& connection) {
  const unsigned long error = ERR_peek_error();
  ERR_clear_error();
  const long verdict = SSL_get_verify_result(&connection);
  if (verdict != X509_V_OK) return CertificateFault(verdict);
  const int reason = ERR_GET_LIB(error) == ERR_LIB_SSL ? ERR_GET_REASON(error) : 0;
  if (IsVersionError(reason)) return TlsFailure::ProtocolVersion;
  if (reason >= SSL_AD_REASON_OFFSET) return TlsFailure::Alert;
  // Nothing that came could be read as the first message of a server.
  if (SSL_get_state(&connection) == TLS_ST_CW_CLNT_HELLO) return TlsFailure::NotTls;
  return TlsFailure::Other;
}

}  // namespace requite
