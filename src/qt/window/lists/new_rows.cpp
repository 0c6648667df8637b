// SPDX-License-Identifier: MIT
// Scrolls up and down only; the view keeps its place sideways.
#include "qt/window/lists/new_rows.h"

#include <QScrollBar>
#include <QTableView>
#include <algorithm>
#include <memory>

namespace requite {
namespace {

void ScrollToRow(QTableView& view, int row) {
  view.doItemsLayout();  // else the scroll bar's range ends before the new row
  const int column = std::max(0, view.columnAt(0));
  view.scrollTo(view.model()->index(row, column));
}

}  // namespace

void ShowNewRows(QTableView& view, const ListTable& table) {
  QObject::connect(&table, &ListTable::Added, &view, [&view](int row) { ScrollToRow(view, row); });
}

void FollowNewRows(QTableView& view, const ListTable& table, std::function<bool()> scanning) {
  const auto atEnd = std::make_shared<bool>(false);
  QObject::connect(&table, &QAbstractItemModel::rowsAboutToBeInserted, &view, [&view, atEnd] {
    const QScrollBar& bar = *view.verticalScrollBar();
    *atEnd = bar.value() == bar.maximum();
  });
  QObject::connect(&table, &ListTable::Added, &view,
                   [&view, &table, atEnd, scanning = std::move(scanning)](int row) {
                     const bool elsewhere = table.List()->SelectedRow() >= 0 || row + 1 != table.rowCount();
                     if (*atEnd && !elsewhere && scanning()) ScrollToRow(view, row);
                   });
}

}  // namespace requite
