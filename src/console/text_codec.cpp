// SPDX-License-Identifier: MIT
// Escapes of the console's text.
#include "console/text_codec.h"

namespace requite {
namespace {

/// C0, DEL, and the five bytes of the code page that map to C1 controls.
bool IsControl(unsigned char byte) {
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
  if (IsControl(byte)) {
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
  constexpr char kLeadOfC1 = '\xC2';
  std::string visible;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const bool c1 =
        utf8[i] == kLeadOfC1 && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) < 0xA0;
    if (c1) {
      AppendHex(visible, static_cast<unsigned char>(utf8[++i]));
    } else if (static_cast<unsigned char>(utf8[i]) < 0x20 || utf8[i] == 0x7F) {
      AppendHex(visible, static_cast<unsigned char>(utf8[i]));
    } else {
      visible += utf8[i];
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
