// SPDX-License-Identifier: MIT
// Encodes a value for the query of a script URL.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// Keeps digits, ASCII letters and ".-_*", turns a blank into "+" and every other byte of the code page
/// into "%" and two capital hex digits. Every "http://" is removed and, if there was one, put in front
/// unencoded; "https://" is encoded like other text. Users' scripts count on this.
[[nodiscard]] std::string UrlEncodeValue(std::string_view text);

}  // namespace requite
