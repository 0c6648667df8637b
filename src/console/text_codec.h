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
/// always one field of one line.
[[nodiscard]] std::string Escaped(std::string_view text);

/// The reverse; `\s` stands for a blank. Nothing for a backslash with anything else behind it.
[[nodiscard]] std::optional<std::string> Unescaped(std::string_view text);

}  // namespace requite
