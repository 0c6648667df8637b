// SPDX-License-Identifier: MIT
// Reads and writes UTF-8 one character at a time.
#include "platform/code_page.h"

#include <algorithm>
#include <cstddef>

#include "platform/windows_1252.h"

namespace requite {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct Character {
  char32_t Number = U'\uFFFD';
  std::size_t Length = 1;  ///< in bytes
};

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// The first character. Of what is no character, the first byte counts as U+FFFD.
Character FirstOf(std::string_view utf8) {
  const auto first = static_cast<unsigned char>(utf8.front());
  if (first < 0x80) return {first, 1};
  if (first < 0xC2 || first > 0xF4) return {};
  const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  const std::string_view rest = utf8.substr(1, length - 1);
  if (rest.size() < length - 1 || !std::all_of(rest.begin(), rest.end(), IsContinuation)) return {};
  char32_t number = first & (0xFFU >> (length + 1));
  for (const char each : rest) number = (number << 6U) | (static_cast<unsigned char>(each) & 0x3FU);
  const char32_t least = length == 2 ? 0x80 : length == 3 ? 0x800 : 0x10000;
  const bool isSurrogate = number >= 0xD800 && number <= 0xDFFF;
  if (number < least || number > 0x10FFFF || isSurrogate) return {};
  return {number, length};
}

}  // namespace

std::string ToUtf8(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size());
  for (const char each : bytes) {
    const char16_t character = windows_1252::CharacterOf(each);
    if (character < 0x80) {
      utf8 += each;
      continue;
    }
    if (character < 0x800) {
      utf8 += static_cast<char>(0xC0U | (character >> 6U));
    } else {
      utf8 += static_cast<char>(0xE0U | (character >> 12U));
      utf8 += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
    }
    utf8 += static_cast<char>(0x80U | (character & 0x3FU));
  }
  return utf8;
}

std::string FromUtf8(std::string_view utf8) {
  if (utf8.starts_with(kByteOrderMark)) utf8.remove_prefix(kByteOrderMark.size());
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty()) {
    const Character first = FirstOf(utf8);
    bytes += windows_1252::ByteOf(first.Number);
    utf8.remove_prefix(first.Length);
  }
  return bytes;
}

}  // namespace requite
