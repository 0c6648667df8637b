// SPDX-License-Identifier: MIT
// The code page as a table: which character a byte stands for, and back.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

namespace requite::windows_1252 {

/// The characters of the bytes 0x80 to 0x9F; every other byte is the character of the same number. The five
/// bytes that the code page leaves undefined are control characters, so that each byte survives a round trip.
inline constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

inline constexpr unsigned char kFirstControl = 0x80;

[[nodiscard]] constexpr char16_t CharacterOf(char byte) {
  const auto number = static_cast<unsigned char>(byte);
  const std::size_t control = static_cast<std::size_t>(number) - kFirstControl;
  return control < kUpperControls.size() ? kUpperControls[control] : char16_t{number};
}

/// "?" for a character outside the code page.
[[nodiscard]] constexpr char ByteOf(char32_t character) {
  if (character < kFirstControl || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  if (found == kUpperControls.end()) return '?';
  return static_cast<char>(kFirstControl + (found - kUpperControls.begin()));
}

}  // namespace requite::windows_1252
