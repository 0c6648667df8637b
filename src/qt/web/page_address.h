// SPDX-License-Identifier: MIT
// What the program or the user means by an address.
#pragma once

#include <QUrl>
#include <optional>
#include <string>

namespace requite {

/// The URL behind an address: paths and file URLs are local files, an address without a scheme is a host,
/// an empty one the empty page. Nothing for other schemes and for what cannot be read as a URL.
[[nodiscard]] std::optional<QUrl> UrlOfAddress(const std::string& address);

/// The text that stands for a URL in an address line: a path for a local file. UrlOfAddress reads it back.
[[nodiscard]] std::string AddressOfUrl(const QUrl& url);

[[nodiscard]] bool IsRemote(const QUrl& url);

}  // namespace requite
