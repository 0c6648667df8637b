// SPDX-License-Identifier: MIT
// Windows-1252 to UTF-8 and back, a character at a time.
#include "harvest/database_text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace requite {
namespace {

/// The characters of the bytes 0x80 to 0x9F; all other bytes are characters of their own number.
constexpr std::array<std::uint16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned kFirst = 0x80;

unsigned CharacterOf(unsigned char byte) {
  const bool isControl = byte >= kFirst && byte < kFirst + kUpperControls.size();
  return isControl ? kUpperControls[byte - kFirst] : byte;
}

char ByteOf(unsigned character) {
  const auto at = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  if (at != kUpperControls.end()) return static_cast<char>(kFirst + (at - kUpperControls.begin()));
  const bool isItsOwnByte = character < kFirst || (character >= 0xA0 && character < 0x100);
  return isItsOwnByte ? static_cast<char>(character) : '?';
}

}  // namespace

std::string ToDatabaseText(std::string_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  for (const char each : text) {
    const unsigned character = CharacterOf(static_cast<unsigned char>(each));
    if (character < 0x80) {
      utf8 += each;
    } else if (character < 0x800) {
      utf8 += static_cast<char>(0xC0 | character >> 6);
      utf8 += static_cast<char>(0x80 | (character & 0x3F));
    } else {
      utf8 += static_cast<char>(0xE0 | character >> 12);
      utf8 += static_cast<char>(0x80 | (character >> 6 & 0x3F));
      utf8 += static_cast<char>(0x80 | (character & 0x3F));
    }
  }
  return utf8;
}

std::string FromDatabaseText(std::string_view utf8) {
  std::string text;
  text.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[at++]);
    // The bits of the lead byte that belong to the character; stray and broken bytes end up as "?" or alone.
    unsigned character = lead < 0xC0   ? lead
                         : lead < 0xE0 ? lead & 0x1FU
                         : lead < 0xF0 ? lead & 0x0FU
                                       : 0x7FFFU;
    while (lead >= 0xC0 && at < utf8.size() && (static_cast<unsigned char>(utf8[at]) & 0xC0) == 0x80) {
      character = (character << 6 | (static_cast<unsigned char>(utf8[at++]) & 0x3FU)) & 0xFFFFFU;
    }
    text += ByteOf(character);
  }
  return text;
}

}  // namespace requite
