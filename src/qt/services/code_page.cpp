// SPDX-License-Identifier: MIT
// Converts between Windows-1252 and the toolkit's strings.
#include "qt/services/code_page.h"

#include <QUrl>
#include <algorithm>

#include "platform/windows_1252.h"

namespace requite {

using windows_1252::ByteOf;
using windows_1252::CharacterOf;

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
    // A surrogate pair is one character.
    if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) ++i;
    bytes.push_back(ByteOf(text[i].unicode()));
  }
  return bytes;
}

std::string AsciiHost(std::string_view host) { return QUrl::toAce(ToUnicode(host)).toStdString(); }

}  // namespace requite
