// SPDX-License-Identifier: MIT
// The text of an HTML page, for the view that shows no markup.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace requite {

struct HtmlText {
  std::string Text;
  bool Cut = false;  ///< the page holds more than `Text`
};

/// The page without its tags, comments, scripts, styles and title; spaces folded, a new line at each block.
/// Markup that is never closed is text. Entities that have a character in the program's code page are
/// decoded, control characters become spaces. `Text` has at most `limit` characters, and its lines at most
/// 4096, which keeps any view of it fast. The time is linear in the page.
[[nodiscard]] HtmlText TextOfHtml(std::string_view page, std::size_t limit);

}  // namespace requite
