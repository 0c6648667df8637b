// SPDX-License-Identifier: MIT
// One GET as libcurl makes it: what is sent, and what of the answer counts.
#pragma once

#include <curl/curl.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "system/connect_map.h"

namespace requite {

struct GetLimits {
  std::size_t MostBytes = std::size_t{64} * 1024 * 1024;  ///< a longer body is cut there
  std::chrono::seconds Silence{60};                       ///< without a byte from the server
  int MostRedirects = 20;
};

/// The name of a host as the net knows it: an international one in its ASCII form. Empty when there is none.
using HostToAscii = std::string (*)(std::string_view host);

/// The URL as it goes to the library: an international host in its ASCII form, a blank or a control character
/// as "%XX", and every other byte as it is. Empty when it does not begin with "http://" or "https://"
/// and a host.
[[nodiscard]] std::string UrlToSend(std::string_view url, HostToAscii hostToAscii);

/// One GET with its redirects; it must not be moved meanwhile.
class CurlTransfer {
 public:
  CurlTransfer(std::string_view url, std::string_view agent, HostToAscii hostToAscii, const ConnectMap& map,
               const GetLimits& limits);
  ~CurlTransfer();
  CurlTransfer(const CurlTransfer&) = delete;
  CurlTransfer& operator=(const CurlTransfer&) = delete;

  [[nodiscard]] CURL* Handle() const { return easy_; }
  /// After a request: makes the next one ready where the response leads on to another page of the web. The
  /// library would do this too, but changes the address on the way.
  [[nodiscard]] bool FollowRedirect();
  /// The body, also one that stopped midway (silence, a reset, the limit). Nothing without the whole head of
  /// a response that leads nowhere else.
  [[nodiscard]] std::optional<std::string> TakeBody();

 private:
  static std::size_t OnHeadLine(const char* line, std::size_t, std::size_t length, void* self) noexcept;
  static std::size_t OnBody(const char* piece, std::size_t, std::size_t length, void* self) noexcept;

  void SetUrl(std::string url);
  void SetRequest(std::string_view agent);
  void SetConnection(const ConnectMap& map);

  GetLimits limits_;
  CURL* easy_;
  curl_slist* headers_ = nullptr;
  curl_slist* connectTo_ = nullptr;
  std::string url_;
  int redirects_ = 0;
  std::string status_;    ///< of the present head: three digits
  std::string location_;  ///< of the present head, if it is one of a redirect
  bool answered_ = false;
  std::string body_;
};

}  // namespace requite
