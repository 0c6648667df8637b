// SPDX-License-Identifier: MIT
// The forms in which records hold a URL. A URL is a plain text; there is no parser behind these.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// Takes the scheme ("http://", "https://", in any letter case and wherever they stand) and a
/// leading "www." (in any letter case) off a Main Site's text, in place. A path is kept.
void NormaliseMainSite(std::string& mainSiteKey);

/// Reduces a URL to its host, in place, and returns the result: schemes go as in NormaliseMainSite,
/// a leading "www." goes only in small letters, and everything from the first "/" on goes.
/// Callers depend on their own text being changed.
std::string BareHost(std::string& url);

/// The directory of a path, ending in "/". A path that is itself a directory gives its parent; a text
/// without any "/" gives itself with "/" behind it.
[[nodiscard]] std::string ParentDir(std::string_view path);

}  // namespace requite
