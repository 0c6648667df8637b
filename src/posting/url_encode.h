// SPDX-License-Identifier: MIT
// The form in which a value travels in the query of a script URL.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// Digits, ASCII letters and ".-_*" as they are, a blank as "+", every other byte of the code page as "%"
/// and two capital hex digits. "http://" is taken out wherever it stands and put in front once, so that
/// the scheme stays readable; "https://" is encoded like anything else. Users' scripts count on this.
[[nodiscard]] std::string UrlEncodeValue(std::string_view text);

}  // namespace requite
