// SPDX-License-Identifier: MIT
// What secure connections call of OpenSSL. Its other library, libcrypto, is loaded with the one named here.
#pragma once

#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include "platform/late_library.h"

namespace requite {

inline constinit LateLibrary kOpenSslLibrary("libssl.so.3");

REQUITE_LATE(kOpenSslLibrary, BIO_ctrl_pending);
REQUITE_LATE(kOpenSslLibrary, BIO_free);
REQUITE_LATE(kOpenSslLibrary, BIO_new);
REQUITE_LATE(kOpenSslLibrary, BIO_new_file);
REQUITE_LATE(kOpenSslLibrary, BIO_read_ex);
REQUITE_LATE(kOpenSslLibrary, BIO_s_mem);
REQUITE_LATE(kOpenSslLibrary, BIO_write_ex);
REQUITE_LATE(kOpenSslLibrary, ERR_clear_error);
REQUITE_LATE(kOpenSslLibrary, ERR_peek_error);
REQUITE_LATE(kOpenSslLibrary, OPENSSL_sk_num);
REQUITE_LATE(kOpenSslLibrary, PEM_read_bio_X509_AUX);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_ctrl);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_free);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_get_cert_store);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_get_ex_data);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_load_verify_dir);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_load_verify_file);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_new);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_sess_set_new_cb);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_set_ex_data);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_set_options);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_set_verify);
REQUITE_LATE(kOpenSslLibrary, SSL_CTX_set_verify_depth);
REQUITE_LATE(kOpenSslLibrary, SSL_SESSION_free);
REQUITE_LATE(kOpenSslLibrary, SSL_SESSION_is_resumable);
REQUITE_LATE(kOpenSslLibrary, SSL_ctrl);
REQUITE_LATE(kOpenSslLibrary, SSL_do_handshake);
REQUITE_LATE(kOpenSslLibrary, SSL_free);
REQUITE_LATE(kOpenSslLibrary, SSL_get0_param);
REQUITE_LATE(kOpenSslLibrary, SSL_get1_session);
REQUITE_LATE(kOpenSslLibrary, SSL_get_SSL_CTX);
REQUITE_LATE(kOpenSslLibrary, SSL_get_error);
REQUITE_LATE(kOpenSslLibrary, SSL_get_ex_data);
REQUITE_LATE(kOpenSslLibrary, SSL_get_rbio);
REQUITE_LATE(kOpenSslLibrary, SSL_get_state);
REQUITE_LATE(kOpenSslLibrary, SSL_get_verify_result);
REQUITE_LATE(kOpenSslLibrary, SSL_get_wbio);
REQUITE_LATE(kOpenSslLibrary, SSL_new);
REQUITE_LATE(kOpenSslLibrary, SSL_read_ex);
REQUITE_LATE(kOpenSslLibrary, SSL_session_reused);
REQUITE_LATE(kOpenSslLibrary, SSL_set_bio);
REQUITE_LATE(kOpenSslLibrary, SSL_set_connect_state);
REQUITE_LATE(kOpenSslLibrary, SSL_set_ex_data);
REQUITE_LATE(kOpenSslLibrary, SSL_set_session);
REQUITE_LATE(kOpenSslLibrary, SSL_set_shutdown);
REQUITE_LATE(kOpenSslLibrary, SSL_write_ex);
REQUITE_LATE(kOpenSslLibrary, TLS_client_method);
REQUITE_LATE(kOpenSslLibrary, X509_STORE_get0_objects);
REQUITE_LATE(kOpenSslLibrary, X509_VERIFY_PARAM_set1_host);
REQUITE_LATE(kOpenSslLibrary, X509_VERIFY_PARAM_set1_ip_asc);
REQUITE_LATE(kOpenSslLibrary, X509_VERIFY_PARAM_set_hostflags);
REQUITE_LATE(kOpenSslLibrary, X509_free);
REQUITE_LATE(kOpenSslLibrary, X509_get_default_cert_dir);
REQUITE_LATE(kOpenSslLibrary, X509_get_default_cert_dir_env);
REQUITE_LATE(kOpenSslLibrary, X509_get_default_cert_file);
REQUITE_LATE(kOpenSslLibrary, X509_get_default_cert_file_env);

}  // namespace requite
