// SPDX-License-Identifier: MIT
// Escapes of JSON, a character at a time.
#include "console/json_text.h"

#include "console/utf8_characters.h"

namespace requite {
namespace {

void AppendEscape(std::string& text, char32_t character) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  text += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) text += kDigits[character >> shift & 0xFU];
}

}  // namespace

std::string JsonText(std::string_view utf8) {
  std::string text = "\"";
  while (!utf8.empty()) {
    const Utf8Character next = TakeCharacter(utf8);
    if (!next.Valid) {
      text += "\\ufffd";
    } else if (next.Code == U'"' || next.Code == U'\\') {
      text.append("\\").append(next.Bytes);
    } else if (IsControl(next.Code) || ChangesDirection(next.Code)) {
      AppendEscape(text, next.Code);
    } else {
      text.append(next.Bytes);
    }
  }
  return text + '"';
}

}  // namespace requite
