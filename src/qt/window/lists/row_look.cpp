// SPDX-License-Identifier: MIT
// Sets a table view up as a list, and how its rows are painted.
#include "qt/window/lists/row_look.h"

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTableView>

#include "qt/window/look/glyphs.h"

namespace requite {
namespace {

constexpr int kRowPadding = 7;

class RowPainter : public QStyledItemDelegate {
 public:
  explicit RowPainter(QTableView& view) : QStyledItemDelegate(&view), view_(view) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    ShowVerdict(*option, index);
    if (!option->state.testFlag(QStyle::State_Selected)) return;
    // The whole row is selected, so a frame around one cell would be wrong.
    option->state.setFlag(QStyle::State_HasFocus, false);
    if (view_.hasFocus()) return;
    const QColor pale = Between(option->palette.color(QPalette::Base),
                                option->palette.color(QPalette::Active, QPalette::Highlight), 0.3);
    option->palette.setColor(QPalette::Highlight, pale);
    // In a disabled list too: pale letters on a pale bar would be unreadable.
    option->palette.setColor(QPalette::HighlightedText,
                             option->palette.color(QPalette::Active, QPalette::Text));
  }

 private:
  /// The picture is that of the row, so it does not vanish with the first column.
  void ShowVerdict(QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (!view_.isColumnHidden(0) || index.column() != LeftmostColumn(view_)) return;
    option.icon = index.siblingAtColumn(0).data(Qt::DecorationRole).value<QIcon>();
    if (!option.icon.isNull()) option.features |= QStyleOptionViewItem::HasDecoration;
  }

  const QTableView& view_;
};

}  // namespace

void LookLikeAList(QTableView& view) {
  view.setItemDelegate(new RowPainter(view));
  view.setAlternatingRowColors(true);
  view.setShowGrid(false);
  view.setWordWrap(false);
  view.setTabKeyNavigation(false);
  view.setCornerButtonEnabled(false);
  view.setSelectionBehavior(QAbstractItemView::SelectRows);
  view.setSelectionMode(QAbstractItemView::SingleSelection);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.setTextElideMode(Qt::ElideRight);
  view.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  view.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  QHeaderView& rows = *view.verticalHeader();
  rows.hide();
  rows.setSectionResizeMode(QHeaderView::Fixed);
  rows.setMinimumSectionSize(1);
  rows.setDefaultSectionSize(view.fontMetrics().height() + kRowPadding);
  QHeaderView& columns = *view.horizontalHeader();
  columns.setSectionsClickable(true);
  columns.setHighlightSections(false);
  columns.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  columns.setStretchLastSection(true);
}

int LeftmostColumn(const QTableView& view) {
  const QHeaderView& header = *view.horizontalHeader();
  for (int visual = 0; visual < header.count(); ++visual) {
    const int column = header.logicalIndex(visual);
    if (!header.isSectionHidden(column)) return column;
  }
  return 0;
}

}  // namespace requite
