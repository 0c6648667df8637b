// SPDX-License-Identifier: MIT
// The character classes around the "@" of an address.
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

/// Both halves of an address end at these.
inline constexpr CharacterSet kStops("\": ><[]()?=,&*/;");

/// Removed from the halves; the right half loses commas as well, and neither loses "&".
inline constexpr CharacterSet kCleanedOfLeft(":\" <>[]()?=*/-\r\n;");
inline constexpr CharacterSet kCleanedOfRight(":\" <>[]()?=,*/-\r\n;");

constexpr bool IsLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// Whether the address pattern accepts the character. It accepts a hyphen too, but hyphens have been
/// cleaned away before.
constexpr bool IsOfAddress(char c) { return IsLetterOrDigit(c) || c == '_' || c == '.'; }

}  // namespace requite
