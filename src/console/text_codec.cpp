// SPDX-License-Identifier: MIT
// Escapes of the console's text.
#include "console/text_codec.h"

#include "platform/utf8_characters.h"

namespace requite {
namespace {

/// C0, DEL, and the five bytes of the code page that map to C1 controls.
bool IsControlByte(unsigned char byte) {
  switch (byte) {
    case 0x7F:
    case 0x81:
    case 0x8D:
    case 0x8F:
    case 0x90:
    case 0x9D: return true;
    default: return byte < 0x20;
  }
}

void AppendHex(std::string& text, unsigned char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  text.append("\\x").append(1, kDigits[byte / 16]).append(1, kDigits[byte % 16]);
}

void AppendVisible(std::string& text, char c) {
  const auto byte = static_cast<unsigned char>(c);
  if (IsControlByte(byte)) {
    AppendHex(text, byte);
  } else {
    text += c;
  }
}

}  // namespace

std::string Visible(std::string_view text) {
  std::string visible;
  visible.reserve(text.size());
  for (const char c : text) {
    if (c == '\t' || c == '\r' || c == '\n') {
      visible += c;
    } else {
      AppendVisible(visible, c);
    }
  }
  return visible;
}

std::string VisibleUtf8(std::string_view utf8) {
  std::string visible;
  while (!utf8.empty()) {
    const Utf8Character next = TakeCharacter(utf8);
    if (next.Valid && IsControl(next.Code)) {
      AppendHex(visible, static_cast<unsigned char>(next.Code));
    } else if (next.Valid && ChangesDirection(next.Code)) {
      for (const char each : next.Bytes) AppendHex(visible, static_cast<unsigned char>(each));
    } else {
      visible.append(next.Bytes);
    }
  }
  return visible;
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '\t': escaped += "\\t"; break;
      case '\n': escaped += "\\n"; break;
      case '\r': escaped += "\\r"; break;
      case '\\': escaped += "\\\\"; break;
      default: AppendVisible(escaped, c);
    }
  }
  return escaped;
}

std::optional<std::string> Unescaped(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      plain += text[i];
      continue;
    }
    if (++i == text.size()) return std::nullopt;
    switch (text[i]) {
      case 't': plain += '\t'; break;
      case 'n': plain += '\n'; break;
      case 'r': plain += '\r'; break;
      case 's': plain += ' '; break;
      case '\\': plain += '\\'; break;
      default: return std::nullopt;
    }
  }
  return plain;
}

}  // namespace requite
