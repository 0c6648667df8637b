// SPDX-License-Identifier: MIT
// Escapes of the console's text.
#include "console/text_codec.h"

namespace requite {

std::string Escaped(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '\t': escaped += "\\t"; break;
      case '\n': escaped += "\\n"; break;
      case '\r': escaped += "\\r"; break;
      case '\\': escaped += "\\\\"; break;
      default: escaped += c;
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
