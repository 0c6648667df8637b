// SPDX-License-Identifier: MIT
// Text on its way between the terminal (UTF-8) and the program (its 8-bit code page).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace requite {

/// The two conversions, handed in by main, which alone knows the toolkit that does them.
struct TextCodec {
  std::string (*ToUtf8)(std::string_view bytes) = nullptr;
  std::string (*FromUtf8)(std::string_view utf8) = nullptr;
};

/// Tab, line feed, carriage return and backslash as `\t`, `\n`, `\r` and `\\`, so that a field is
/// always one field of one line; other control characters as `\xNN`, so that no text of a stranger steers
/// the terminal. The text is in the program's code page.
[[nodiscard]] std::string Escaped(std::string_view text);

/// A text of many lines for a terminal: control characters as `\xNN`, but for tabs and line ends.
[[nodiscard]] std::string Visible(std::string_view text);

/// UTF-8 on one line of a terminal: control characters as `\xNN`.
[[nodiscard]] std::string VisibleUtf8(std::string_view utf8);

/// The reverse of the first four of Escaped; `\s` stands for a blank. Nothing for a backslash with anything
/// else after it.
[[nodiscard]] std::optional<std::string> Unescaped(std::string_view text);

}  // namespace requite
