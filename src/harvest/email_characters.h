// SPDX-License-Identifier: MIT
// The kinds of characters that matter around the "@" of an address.
#pragma once

#include <array>
#include <string_view>

namespace requite {

/// A set of characters.
class CharacterSet {
 public:
  constexpr explicit CharacterSet(std::string_view members) {
    for (const char c : members) holds_[static_cast<unsigned char>(c)] = true;
  }
  [[nodiscard]] constexpr bool Has(char c) const { return holds_[static_cast<unsigned char>(c)]; }

 private:
  std::array<bool, 256> holds_{};
};

/// Both halves of an address stop at these.
inline constexpr CharacterSet kStops("\": ><[]()?=,&*/;");

/// What is cleaned away; the right half loses its commas as well, and neither loses its "&".
inline constexpr CharacterSet kCleanedOfLeft(":\" <>[]()?=*/-\r\n;");
inline constexpr CharacterSet kCleanedOfRight(":\" <>[]()?=,*/-\r\n;");

constexpr bool IsLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// Whether the pattern of an address takes the character. The hyphen, which it takes too, is cleaned away
/// before.
constexpr bool IsOfAddress(char c) { return IsLetterOrDigit(c) || c == '_' || c == '.'; }

}  // namespace requite
