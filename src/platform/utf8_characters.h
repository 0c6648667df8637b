// SPDX-License-Identifier: MIT
// The characters of a text in UTF-8 from outside, and which of them must not be shown as they are.
#pragma once

#include <string_view>

namespace requite {

struct Utf8Character {
  char32_t Code = 0;
  std::string_view Bytes;  ///< one byte when it is not valid
  bool Valid = false;
};

/// Removes the first character of a text that is not empty. Longer forms than needed, surrogates and numbers
/// that are no characters are not valid.
[[nodiscard]] Utf8Character TakeCharacter(std::string_view& utf8);

[[nodiscard]] bool IsUtf8(std::string_view text);

/// C0, DEL and C1.
[[nodiscard]] constexpr bool IsControl(char32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

/// Marks that reorder the text around them on a terminal.
[[nodiscard]] constexpr bool ChangesDirection(char32_t code) {
  return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

}  // namespace requite
