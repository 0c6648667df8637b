// SPDX-License-Identifier: MIT
// What an address given by the program or the user means.
#pragma once

#include <QUrl>
#include <optional>
#include <string>

namespace requite {

/// The URL of an address: paths and file URLs are local files, an address without a scheme is a host,
/// an empty one the empty page. Nothing for other schemes and for anything that is not a URL.
[[nodiscard]] std::optional<QUrl> UrlOfAddress(const std::string& address);

/// The text to show for a URL in an address line: a path for a local file. UrlOfAddress reads it back.
[[nodiscard]] std::string AddressOfUrl(const QUrl& url);

[[nodiscard]] bool IsRemote(const QUrl& url);

}  // namespace requite
