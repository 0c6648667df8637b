// SPDX-License-Identifier: MIT
// Finds the difference between two texts and applies it to bytes.
#include "qt/window/controls/text_change.h"

#include <algorithm>

#include "qt/services/code_page.h"

namespace requite {
namespace {

/// The offset a number of characters after `at`; CR LF is one character.
std::size_t Skip(std::string_view bytes, std::size_t at, qsizetype characters) {
  for (; characters > 0 && at < bytes.size(); --characters) at += bytes.substr(at, 2) == "\r\n" ? 2 : 1;
  return at;
}

std::string BytesOf(QString lines) {
  // A line separator is what Shift+Enter types.
  lines.replace(QChar::LineSeparator, "\r\n").replace(QChar::ParagraphSeparator, "\r\n");
  return FromUnicode(lines);
}

}  // namespace

TextChange ChangeBetween(const QString& before, const QString& after) {
  const auto [old, now] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const qsizetype same = old - before.begin();
  const qsizetype longest = std::min(before.size(), after.size()) - same;
  qsizetype tail = 0;
  while (tail < longest && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) ++tail;
  return {same, before.size() - tail - same, after.mid(same, after.size() - tail - same)};
}

qsizetype PlaceAfter(qsizetype place, const TextChange& change) {
  if (place >= change.At + change.Removed) return place - change.Removed + change.Added.size();
  return std::min(place, change.At + change.Added.size());
}

QString LinesOf(std::string_view bytes) {
  QString lines = ToUnicode(bytes);
  lines.replace("\r\n", "\n");
  std::replace_if(
      lines.begin(), lines.end(), [](QChar c) { return c == u'\n' || c == u'\r'; },
      QChar(QChar::ParagraphSeparator));
  return lines;
}

std::string WithChange(std::string_view bytes, const TextChange& change) {
  const std::size_t begin = Skip(bytes, 0, change.At);
  const std::size_t end = Skip(bytes, begin, change.Removed);
  return std::string(bytes.substr(0, begin)) + BytesOf(change.Added) + std::string(bytes.substr(end));
}

}  // namespace requite
