// SPDX-License-Identifier: MIT
// The forms of a URL in records. A URL is a plain text; these functions do not parse it.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// Removes every "http://" and "https://" and a leading "www." from the text of a Main Site, in any letter
/// case, in place. A path is kept.
void NormaliseMainSite(std::string& mainSiteKey);

/// Reduces a URL to its host, in place, and returns the result. Removes schemes as NormaliseMainSite does, a
/// leading "www." in lower case only, and everything from the first "/" on. Callers depend on the change of
/// their own text.
std::string BareHost(std::string& url);

/// The directory of a path, ending in "/". For a directory the result is its parent; for a text without any
/// "/" it is the text with "/" added.
[[nodiscard]] std::string ParentDir(std::string_view path);

}  // namespace requite
