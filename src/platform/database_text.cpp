// SPDX-License-Identifier: MIT
// Windows-1252 to UTF-8 and back, a character at a time.
#include "platform/database_text.h"

#include "platform/windows_1252.h"

namespace requite {

using windows_1252::ByteOf;
using windows_1252::CharacterOf;

std::string ToDatabaseText(std::string_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  for (const char each : text) {
    const unsigned character = CharacterOf(each);
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
    // The bits of the lead byte that belong to the character. A stray or broken byte becomes "?" or a
    // character of its own.
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
