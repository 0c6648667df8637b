// SPDX-License-Identifier: MIT
// A text as JSON writes it.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// The text in its quotation marks. Control characters, and characters that change the writing direction, are
/// escaped, so it can be shown on a terminal too. What is not UTF-8 becomes U+FFFD.
[[nodiscard]] std::string JsonText(std::string_view utf8);

}  // namespace requite
