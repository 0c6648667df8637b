// SPDX-License-Identifier: MIT
// Decodes UTF-8 without trusting it.
#include "platform/utf8_characters.h"

#include <cstddef>

namespace requite {
namespace {

struct Lead {
  std::size_t Length = 0;  ///< in bytes; 0 for a byte that begins no character
  char32_t Least = 0;      ///< the first code that needs so many bytes
  char32_t Bits = 0;
};

Lead LeadOf(unsigned char byte) {
  if (byte < 0x80) return {1, 0, byte};
  if (byte >= 0xC2 && byte < 0xE0) return {2, 0x80, byte & 0x1FU};
  if (byte >= 0xE0 && byte < 0xF0) return {3, 0x800, byte & 0x0FU};
  if (byte >= 0xF0 && byte < 0xF5) return {4, 0x10000, byte & 0x07U};
  return {};
}

}  // namespace

Utf8Character TakeCharacter(std::string_view& utf8) {
  const Lead lead = LeadOf(static_cast<unsigned char>(utf8.front()));
  char32_t code = lead.Bits;
  bool valid = lead.Length > 0 && lead.Length <= utf8.size();
  for (std::size_t i = 1; valid && i < lead.Length; ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    valid = (byte & 0xC0U) == 0x80U;
    code = code << 6U | (byte & 0x3FU);
  }
  valid = valid && code >= lead.Least && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
  const Utf8Character character{code, utf8.substr(0, valid ? lead.Length : 1), valid};
  utf8.remove_prefix(character.Bytes.size());
  return character;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    if (!TakeCharacter(text).Valid) return false;
  }
  return true;
}

}  // namespace requite
