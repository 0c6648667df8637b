// SPDX-License-Identifier: MIT
// One GET made by libcurl: what is sent, and which part of the answer is used.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "system/connect_map.h"
#include "system/late_curl.h"
#include "system/tls_store.h"

namespace requite {

struct GetLimits {
  std::size_t MostBytes = std::size_t{64} * 1024 * 1024;  ///< a longer body is cut there
  std::chrono::seconds Silence{60};                       ///< without a byte from the server
  int MostRedirects = 20;
};

/// The name of a host as DNS has it: an international one in its ASCII form. Empty when it has no such form.
using HostToAscii = std::string (*)(std::string_view host);

/// The authorities that secure servers need, read when the first of them is asked.
class GetAuthorities {
 public:
  /// Without a store it is the system's.
  explicit GetAuthorities(std::optional<TlsStore> store) : store_(std::move(store)) {}

  /// The store as the library takes it: without a file that has no certificate.
  [[nodiscard]] const TlsStore& Read();

 private:
  std::optional<TlsStore> store_;
  bool read_ = false;
};

/// What holds for all GETs.
struct GetRules {
  const ConnectMap& Map;
  HostToAscii ToAscii;
  GetLimits Limits;
  GetAuthorities& Authorities;
};

/// The URL as it is given to the library: an international host in its ASCII form, a space or a control
/// character as "%XX", and every other byte as it is. Empty when it does not begin with "http://" or
/// "https://" and a host.
[[nodiscard]] std::string UrlToSend(std::string_view url, HostToAscii hostToAscii);

/// One GET with its redirects; the object must not be moved while it runs.
class CurlTransfer {
 public:
  /// The rules must outlive the transfer.
  CurlTransfer(std::string_view url, std::string_view agent, const GetRules& rules);
  ~CurlTransfer();
  CurlTransfer(const CurlTransfer&) = delete;
  CurlTransfer& operator=(const CurlTransfer&) = delete;

  [[nodiscard]] CURL* Handle() const { return easy_; }
  /// After a request: prepares the next one when the response redirects to another page. The library could do
  /// this too, but would change the address.
  [[nodiscard]] bool FollowRedirect();
  /// The body, even one that was cut off (silence, a reset, the limit). Nothing without the complete header
  /// of a response that is not a redirect.
  [[nodiscard]] std::optional<std::string> TakeBody();

 private:
  static std::size_t OnHeadLine(const char* line, std::size_t, std::size_t length, void* self) noexcept;
  static std::size_t OnBody(const char* piece, std::size_t, std::size_t length, void* self) noexcept;

  void SetUrl(std::string url);
  void SetRequest(std::string_view agent);
  void SetConnection();
  void SetAuthorities();

  const GetRules& rules_;
  CURL* easy_;
  curl_slist* headers_ = nullptr;
  curl_slist* connectTo_ = nullptr;
  std::string url_;
  int redirects_ = 0;
  std::string status_;    ///< of the current header: three digits
  std::string location_;  ///< of the current header, if it is a redirect
  bool answered_ = false;
  std::string body_;
};

}  // namespace requite
