// SPDX-License-Identifier: MIT
// Writes the fields of rows one after the other.
#include "qt/window/lists/row_text.h"

#include "qt/services/code_page.h"

namespace requite {
namespace {

constexpr qsizetype kLongestName = 60;  // characters

QString FieldText(const std::string& bytes) {
  QString text = ToUnicode(bytes);
  for (QChar& each : text) {
    if (each.category() == QChar::Other_Control) each = u' ';
  }
  return text;
}

}  // namespace

QString RowsAsText(const ListView& list, const std::vector<int>& rows) {
  QString text;
  for (const int row : rows) {
    if (row < 0 || row >= static_cast<int>(list.RowCount())) continue;
    QString line;
    for (std::size_t column = 0; column < list.ColumnCount(); ++column) {
      if (column > 0) line += '\t';
      line += FieldText(list.FieldAt(static_cast<std::size_t>(row), column));
    }
    while (line.endsWith('\t')) line.chop(1);
    if (!text.isEmpty()) text += '\n';
    text += line;
  }
  return text;
}

std::vector<int> SelectedRows(const ListView& list) {
  std::vector<int> rows;
  if (list.SelectedRow() < 0) return rows;
  for (std::size_t row = 0; row < list.RowCount(); ++row) {
    if (list.IsSelected(row)) rows.push_back(static_cast<int>(row));
  }
  return rows;
}

QString ShortName(const QString& text) {
  if (text.size() <= kLongestName) return text;
  return text.left(kLongestName / 2) + QChar(0x2026) + text.right(kLongestName / 2 - 1);
}

}  // namespace requite
