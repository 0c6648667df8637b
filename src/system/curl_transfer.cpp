// SPDX-License-Identifier: MIT
// The options of a request, and the reading of its response.
#include "system/curl_transfer.h"

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "platform/text.h"

namespace requite {
namespace {

void AppendEscaped(std::string& to, char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto number = static_cast<unsigned char>(byte);
  to += {'%', kDigits[number >> 4U], kDigits[number & 15U]};
}

std::string InBrackets(const std::string& host) {
  return host.find(':') == std::string::npos ? host : "[" + host + "]";
}

/// A rule in the library's form, which is also that of the command line.
std::string Written(const ConnectRule& rule) {
  const std::string port = rule.Port ? std::to_string(*rule.Port) : std::string();
  return InBrackets(rule.Host) + ":" + port + ":" + InBrackets(rule.Target.Host) + ":" +
         std::to_string(rule.Target.Port);
}

/// The part of a URL that is sent in the request: path and query.
std::string TargetOf(std::string_view url) {
  const std::size_t begin = std::min(url.find_first_of("/?#", url.find("://") + 3), url.size());
  const std::string target(Before(url.substr(begin), '#'));
  return target.starts_with('/') ? target : "/" + target;
}

/// Where a Location leads from a URL; empty when that is not a URL.
std::string Resolved(const std::string& url, const std::string& location) {
  const std::unique_ptr<CURLU, void (*)(CURLU*)> parts(curl_url(), curl_url_cleanup);
  for (const std::string& each : {url, location}) {
    if (curl_url_set(parts.get(), CURLUPART_URL, each.c_str(), CURLU_PATH_AS_IS) != CURLUE_OK) return {};
  }
  char* whole = nullptr;
  if (curl_url_get(parts.get(), CURLUPART_URL, &whole, 0) != CURLUE_OK) return {};
  const std::unique_ptr<char, void (*)(void*)> owned(whole, curl_free);
  return whole;
}

bool IsRedirect(std::string_view status) {
  constexpr std::array<std::string_view, 5> kRedirects = {"301", "302", "303", "307", "308"};
  return std::find(kRedirects.begin(), kRedirects.end(), status) != kRedirects.end();
}

bool IsWebUrl(std::string_view url) {
  return StartsWith(url, "http://", Compare::Text) || StartsWith(url, "https://", Compare::Text);
}

std::string Escaped(std::string_view url) {
  std::string escaped;
  for (const char byte : url) {
    const auto number = static_cast<unsigned char>(byte);
    if (number <= ' ' || number == 0x7F) {
      AppendEscaped(escaped, byte);
    } else {
      escaped += byte;
    }
  }
  return escaped;
}

}  // namespace

std::string UrlToSend(std::string_view url, HostToAscii hostToAscii) {
  if (!IsWebUrl(url)) return {};
  const std::size_t authority = url.find("://") + 3;
  const std::size_t pathBegin = std::min(url.find_first_of("/?#", authority), url.size());
  const std::size_t user = url.substr(0, pathBegin).rfind('@');
  const std::size_t hostBegin = user == std::string_view::npos ? authority : user + 1;
  const std::size_t hostEnd = std::min(url.find(':', hostBegin), pathBegin);
  std::string host(url.substr(hostBegin, hostEnd - hostBegin));
  const bool plain = std::all_of(host.begin(), host.end(), [](char byte) { return (byte & 0x80) == 0; });
  if (!plain) host = hostToAscii(host);  // the library would read the letters by the locale
  if (host.empty()) return {};           // the library would use the first folder as the host
  return Escaped(url.substr(0, hostBegin)) + Escaped(host) + Escaped(url.substr(hostEnd));
}

const TlsStore& GetAuthorities::Read() {
  if (!store_) store_ = SystemTlsStore();
  if (!std::exchange(read_, true) && !HasCertificate(store_->File)) store_->File.clear();
  return *store_;
}

CurlTransfer::CurlTransfer(std::string_view url, std::string_view agent, const GetRules& rules)
    : rules_(rules), easy_(curl_easy_init()) {
  SetUrl(UrlToSend(url, rules.ToAscii));
  SetRequest(agent);
  SetConnection();
  curl_easy_setopt(easy_, CURLOPT_HEADERFUNCTION, OnHeadLine);
  curl_easy_setopt(easy_, CURLOPT_HEADERDATA, this);
  curl_easy_setopt(easy_, CURLOPT_WRITEFUNCTION, OnBody);
  curl_easy_setopt(easy_, CURLOPT_WRITEDATA, this);
}

CurlTransfer::~CurlTransfer() {
  curl_easy_cleanup(easy_);
  curl_slist_free_all(headers_);
  curl_slist_free_all(connectTo_);
}

void CurlTransfer::SetUrl(std::string url) {
  url_ = std::move(url);
  curl_easy_setopt(easy_, CURLOPT_URL, url_.c_str());
  curl_easy_setopt(easy_, CURLOPT_REQUEST_TARGET, TargetOf(url_).c_str());  // to the byte
  if (StartsWith(url_, "https://", Compare::Text)) SetAuthorities();
}

void CurlTransfer::SetRequest(std::string_view agent) {
  curl_easy_setopt(easy_, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(easy_, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
  curl_easy_setopt(easy_, CURLOPT_USERAGENT, std::string(agent).c_str());
  for (const char* header : {"Cache-Control: no-cache", "Pragma: no-cache", "Connection: close"}) {
    headers_ = curl_slist_append(headers_, header);
  }
  curl_easy_setopt(easy_, CURLOPT_HTTPHEADER, headers_);
}

void CurlTransfer::SetConnection() {
  for (const ConnectRule& rule : rules_.Map.Rules()) {
    connectTo_ = curl_slist_append(connectTo_, Written(rule).c_str());
  }
  curl_easy_setopt(easy_, CURLOPT_CONNECT_TO, connectTo_);
  curl_easy_setopt(easy_, CURLOPT_PROXY, "");  // whatever the environment says
  // A kept connection may turn out to be closed, and the library would then repeat the request, but a
  // script may count every request.
  curl_easy_setopt(easy_, CURLOPT_FRESH_CONNECT, 1L);
  curl_easy_setopt(easy_, CURLOPT_FORBID_REUSE, 1L);
  const auto silence = static_cast<long>(rules_.Limits.Silence.count());
  curl_easy_setopt(easy_, CURLOPT_CONNECTTIMEOUT, silence);
  curl_easy_setopt(easy_, CURLOPT_LOW_SPEED_LIMIT, 1L);
  curl_easy_setopt(easy_, CURLOPT_LOW_SPEED_TIME, silence);
  curl_easy_setopt(easy_, CURLOPT_NOSIGNAL, 1L);
  curl_easy_setopt(easy_, CURLOPT_QUICK_EXIT, 1L);  // does not wait for a look-up that hangs
}

/// The library would pass over SSL_CERT_FILE and SSL_CERT_DIR, which hold for pages. And it would trust
/// nobody when the file has no certificate or the folders are empty text, whatever the other one has.
void CurlTransfer::SetAuthorities() {
  const auto& [file, folders] = rules_.Authorities.Read();
  curl_easy_setopt(easy_, CURLOPT_CAINFO, file.empty() ? nullptr : file.c_str());
  curl_easy_setopt(easy_, CURLOPT_CAPATH, folders.empty() ? nullptr : folders.c_str());
}

std::size_t CurlTransfer::OnHeadLine(const char* text, std::size_t, std::size_t length, void* self) noexcept {
  auto& transfer = *static_cast<CurlTransfer*>(self);
  constexpr std::string_view kLocation = "Location:";
  std::string_view line(text, length);
  line = line.substr(0, line.find_last_not_of("\r\n") + 1);
  if (line.starts_with("HTTP/")) {
    transfer.status_ = line.substr(line.find(' ') + 1, 3);
    transfer.location_.clear();
    transfer.answered_ = false;
  } else if (line.empty()) {
    transfer.answered_ = transfer.location_.empty() && !transfer.status_.starts_with('1');
  } else if (transfer.location_.empty() && IsRedirect(transfer.status_) &&
             StartsWith(line, kLocation, Compare::Text)) {
    transfer.location_ = Escaped(Trim(line.substr(kLocation.size())));
  }
  return length;
}

std::size_t CurlTransfer::OnBody(const char* piece, std::size_t, std::size_t length, void* self) noexcept {
  constexpr std::size_t kEndTransfer = 0;
  auto& transfer = *static_cast<CurlTransfer*>(self);
  if (!transfer.answered_) return kEndTransfer;  // the page sent with a redirect is not read
  const std::size_t room = transfer.rules_.Limits.MostBytes - transfer.body_.size();
  transfer.body_.append(piece, std::min(room, length));
  return length <= room ? length : kEndTransfer;
}

bool CurlTransfer::FollowRedirect() {
  if (location_.empty() || redirects_ == rules_.Limits.MostRedirects) return false;
  std::string next = Resolved(url_, location_);
  if (!IsWebUrl(next)) return false;
  ++redirects_;
  location_.clear();
  SetUrl(std::move(next));
  return true;
}

std::optional<std::string> CurlTransfer::TakeBody() {
  if (!answered_) return std::nullopt;
  return std::move(body_);
}

}  // namespace requite
