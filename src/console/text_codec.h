// SPDX-License-Identifier: MIT
// Converts text between the terminal (UTF-8) and the program (its 8-bit code page).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace requite {

/// The two conversions; main passes them in.
struct TextCodec {
  std::string (*ToUtf8)(std::string_view bytes) = nullptr;
  std::string (*FromUtf8)(std::string_view utf8) = nullptr;
};

/// Tab, line feed, carriage return and backslash as `\t`, `\n`, `\r` and `\\`, so that a field always
/// stays one field of one line; other control characters as `\xNN`, so that remote text cannot control
/// the terminal. The text is in the code page.
[[nodiscard]] std::string Escaped(std::string_view text);

/// A text of several lines for a terminal: control characters as `\xNN`, except tabs and line ends.
[[nodiscard]] std::string Visible(std::string_view text);

/// One line of UTF-8 for a terminal: control characters, and the bytes of marks that reorder the text around
/// them, as `\xNN`.
[[nodiscard]] std::string VisibleUtf8(std::string_view utf8);

/// Reverses the first four of Escaped; `\s` is a blank. Nothing when anything else follows a backslash.
[[nodiscard]] std::optional<std::string> Unescaped(std::string_view text);

}  // namespace requite
