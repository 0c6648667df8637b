// SPDX-License-Identifier: MIT
// Addresses are read here because the toolkit's guess mistakes words for files and schemes for hosts.
#include "qt/web/page_address.h"

#include <QFile>
#include <QFileInfo>

#include "platform/text.h"
#include "qt/services/code_page.h"

namespace requite {
namespace {

constexpr std::string_view kFileScheme = "file://";

/// "mailto:x" and "javascript:x" have a scheme; "host", "host/a:b" and "host:8080/x" have none.
bool HasScheme(std::string_view address) {
  const std::size_t colon = address.find(':');
  if (colon == std::string_view::npos || colon == 0) return false;
  if (address.substr(0, colon).find_first_of("/?#.") != std::string_view::npos) return false;
  return colon + 1 == address.size() || address[colon + 1] < '0' || address[colon + 1] > '9';
}

QUrl FileUrl(const std::string& path) { return QUrl::fromLocalFile(QFile::decodeName(path.c_str())); }

}  // namespace

std::optional<QUrl> UrlOfAddress(const std::string& address) {
  if (address.empty() || Equals(address, "about:blank", Compare::Text)) return QUrl("about:blank");
  if (address.front() == '/') return FileUrl(address);
  if (StartsWith(address, kFileScheme, Compare::Text)) {
    const QUrl plain = FileUrl(address.substr(kFileScheme.size()));
    return QFileInfo::exists(plain.toLocalFile()) ? plain : QUrl(ToUnicode(address));
  }
  const QUrl url(ToUnicode(HasScheme(address) ? address : "http://" + address));
  if (!url.isValid() || !IsRemote(url)) return std::nullopt;
  return url;
}

std::string AddressOfUrl(const QUrl& url) {
  if (url.isLocalFile()) return QFile::encodeName(url.toLocalFile()).toStdString();
  return url.toString(QUrl::FullyEncoded).toStdString();
}

bool IsRemote(const QUrl& url) {
  return (url.scheme() == "http" || url.scheme() == "https") && !url.host().isEmpty();
}

}  // namespace requite
