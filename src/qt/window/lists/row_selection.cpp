// SPDX-License-Identifier: MIT
// Ranges of rows are compared and set as a whole, because all of 100,000 rows may be selected.
#include "qt/window/lists/row_selection.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace requite {
namespace {

using Stretch = std::pair<int, int>;  // first and last row

std::vector<Stretch> SelectedIn(const ListView& list, int shownRows) {
  std::vector<Stretch> stretches;
  if (list.SelectedRow() < 0) return stretches;
  const int rows = std::min(shownRows, static_cast<int>(list.RowCount()));
  for (int row = 0; row < rows; ++row) {
    if (!list.IsSelected(static_cast<std::size_t>(row))) continue;
    if (!stretches.empty() && stretches.back().second == row - 1) {
      stretches.back().second = row;
    } else {
      stretches.emplace_back(row, row);
    }
  }
  return stretches;
}

/// Sorted by row, with neighbours joined: a view keeps them in the order of the user's clicks.
std::vector<Stretch> SelectedIn(const QItemSelectionModel& view) {
  std::vector<Stretch> parts;
  for (const QItemSelectionRange& range : view.selection()) parts.emplace_back(range.top(), range.bottom());
  std::sort(parts.begin(), parts.end());
  std::vector<Stretch> joined;
  for (const Stretch& part : parts) {
    if (!joined.empty() && part.first <= joined.back().second + 1) {
      joined.back().second = std::max(joined.back().second, part.second);
    } else {
      joined.push_back(part);
    }
  }
  return joined;
}

}  // namespace

void TakeSelectedRows(const QItemSelectionModel& view, ListView& list) {
  const int rows = static_cast<int>(list.RowCount());
  list.SelectOnly(-1);
  for (const auto& [first, last] : SelectedIn(view)) {
    for (int row = first; row <= std::min(last, rows - 1); ++row) {
      list.AlsoSelect(static_cast<std::size_t>(row));
    }
  }
  const int current = view.currentIndex().isValid() ? view.currentIndex().row() : -1;
  if (current >= 0 && current < rows && list.IsSelected(static_cast<std::size_t>(current))) {
    list.AlsoSelect(static_cast<std::size_t>(current));
  }
}

void ShowSelectedRows(QItemSelectionModel& view, const ListTable& table) {
  if (table.List() == nullptr) return;
  const std::vector<Stretch> wanted = SelectedIn(*table.List(), table.rowCount());
  if (wanted == SelectedIn(view)) return;
  QItemSelection selection;
  for (const auto& [first, last] : wanted) {
    selection.select(table.index(first, 0), table.index(last, table.columnCount() - 1));
  }
  view.select(selection, QItemSelectionModel::ClearAndSelect);
}

}  // namespace requite
