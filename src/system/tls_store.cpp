// SPDX-License-Identifier: MIT
// The two variables, and the names that the library gives to files in a folder of certificates.
#include "system/tls_store.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string_view>

#include "system/late_openssl.h"

namespace requite {
namespace {

std::string VariableOr(const char* name, const char* otherwise) {
  const char* value = ::secure_getenv(name);
  return value != nullptr ? value : otherwise;
}

/// "5ed36f99.0": eight hexadecimal digits and a number.
bool IsHashName(std::string_view name) {
  constexpr std::size_t kHash = 8;
  return name.size() > kHash + 1 && name[kHash] == '.' &&
         name.find_first_not_of("0123456789abcdef") == kHash &&
         name.find_first_not_of("0123456789", kHash + 1) == std::string_view::npos;
}

bool FolderHasHash(const std::string& folder) {
  std::error_code failed;
  for (std::filesystem::directory_iterator entry(folder, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    if (IsHashName(entry->path().filename().native())) return true;
  }
  return false;
}

}  // namespace

TlsStore SystemTlsStore() {
  return {VariableOr(X509_get_default_cert_file_env(), X509_get_default_cert_file()),
          VariableOr(X509_get_default_cert_dir_env(), X509_get_default_cert_dir())};
}

bool HasCertificate(const std::string& file) {
  const std::unique_ptr<BIO, int (*)(BIO*)> input(BIO_new_file(file.c_str(), "r"), BIO_free);
  X509* found = input ? PEM_read_bio_X509_AUX(input.get(), nullptr, nullptr, nullptr) : nullptr;
  const bool has = found != nullptr;
  X509_free(found);
  ERR_clear_error();
  return has;
}

bool HasHashedCertificate(const std::string& folders) {
  std::size_t begin = 0;
  while (begin < folders.size()) {
    const std::size_t end = std::min(folders.find(':', begin), folders.size());
    if (FolderHasHash(folders.substr(begin, end - begin))) return true;
    begin = end + 1;
  }
  return false;
}

}  // namespace requite
