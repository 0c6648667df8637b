// SPDX-License-Identifier: MIT
// The one table of letter case over the code page; every comparison that ignores case uses it.
#pragma once

#include <array>

namespace requite {

/// Builds the lower-case form of each byte of Windows-1252; other bytes stay as they are.
constexpr std::array<unsigned char, 256> MakeFoldTable() {
  std::array<unsigned char, 256> table{};
  for (unsigned i = 0; i < 256; ++i) {
    const bool plainLetter = i >= 'A' && i <= 'Z';
    const bool accentedLetter = i >= 0xC0 && i <= 0xDE && i != 0xD7;  // 0xD7 is the multiplication sign
    table[i] = static_cast<unsigned char>(plainLetter || accentedLetter ? i + 32 : i);
  }
  table[0x8A] = 0x9A;
  table[0x8C] = 0x9C;
  table[0x8E] = 0x9E;
  table[0x9F] = 0xFF;
  return table;
}

inline constexpr std::array<unsigned char, 256> kFoldTable = MakeFoldTable();

}  // namespace requite
