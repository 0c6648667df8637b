// SPDX-License-Identifier: MIT
// Windows-1252 by table.
#include "shell/qt/code_page.h"

#include <algorithm>
#include <array>

namespace requite {
namespace {

/// The bytes 0x80 to 0x9F; all others are the character of the same number.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned char kFirstControl = 0x80;

char16_t CharacterOf(char byte) {
  const auto number = static_cast<unsigned char>(byte);
  const std::size_t control = static_cast<std::size_t>(number) - kFirstControl;
  return control < kUpperControls.size() ? kUpperControls[control] : char16_t{number};
}

char ByteOf(char16_t character) {
  if (character < kFirstControl || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(character);
  }
  const auto found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  if (found == kUpperControls.end()) return '?';
  return static_cast<char>(kFirstControl + (found - kUpperControls.begin()));
}

}  // namespace

QString ToUnicode(std::string_view bytes) {
  QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](char byte) { return QChar(CharacterOf(byte)); });
  return text;
}

std::string FromUnicode(const QString& text) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()));
  for (qsizetype i = 0; i < text.size(); ++i) {
    // Both halves of a character beyond the basic plane are one character.
    if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) ++i;
    bytes.push_back(ByteOf(text[i].unicode()));
  }
  return bytes;
}

std::string ToUtf8(std::string_view bytes) { return ToUnicode(bytes).toStdString(); }

std::string FromUtf8(std::string_view utf8) {
  return FromUnicode(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

}  // namespace requite
