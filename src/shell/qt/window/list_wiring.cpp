// SPDX-License-Identifier: MIT
// What the user does in a table, told to its list; and the list's selection, shown in the table.
#include <QEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QTreeView>

#include "shell/qt/window/list_table.h"

namespace requite {
namespace {

/// Watches a tree view's mouse and keyboard, and paints the words of an empty list.
class TableHand : public QObject {
 public:
  TableHand(QTreeView& view, ListTable& table, const EventGuard& guard, QString emptyText)
      : QObject(&view), view_(view), table_(table), guard_(guard), emptyText_(std::move(emptyText)) {
    view.viewport()->installEventFilter(this);
    connect(view.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& now) { OnCurrent(now); });
    connect(&view, &QTreeView::doubleClicked, this, [this](const QModelIndex& at) {
      Tell([&](ListView& list) {
        if (list.OnDoubleClick) list.OnDoubleClick(at.row());
      });
    });
    connect(view.header(), &QHeaderView::sectionClicked, this, [this](int column) {
      Tell([&](ListView& list) {
        if (list.OnColumnClick) list.OnColumnClick(column);
      });
    });
    table_.OnRefreshed = [this] { ShowSelection(); };
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress) OnPress(*static_cast<QMouseEvent*>(event));
    if (event->type() == QEvent::Paint && table_.rowCount() == 0) painting_ = true;
    if (!painting_) return false;
    painting_ = false;
    PaintEmptyText();
    return true;
  }

 private:
  template <class Act>
  void Tell(Act&& act) {
    if (ListView* const list = table_.List()) guard_.Run([&] { act(*list); });
  }

  void OnPress(const QMouseEvent& press) {
    const QModelIndex at = view_.indexAt(press.pos());
    const int row = at.isValid() ? at.row() : -1;
    Tell([&](ListView& list) {
      if (list.OnMouseDown) list.OnMouseDown(row);
    });
    if (press.button() == Qt::RightButton) {
      Tell([&](ListView& list) {
        if (list.OnRightButtonDown) list.OnRightButtonDown(row);
      });
    } else if (press.button() == Qt::LeftButton) {
      const bool again = row >= 0 && table_.List() != nullptr && table_.List()->SelectedRow() == row;
      if (again) {
        // A second, slow click on the selected row begins an edit of its label.
        Tell([&](ListView& list) {
          if (list.OnItemClick) list.OnItemClick(row);
          if (list.OnLabelEdit) list.OnLabelEdit(row);
        });
      } else if (row < 0) {
        Select(-1);
      }
    }
  }

  /// The keyboard and the mouse both move the current row.
  void OnCurrent(const QModelIndex& now) {
    if (showing_ || !now.isValid() || table_.List() == nullptr) return;
    if (table_.List()->SelectedRow() != now.row()) Select(now.row());
  }

  void Select(int row) {
    Tell([&](ListView& list) {
      if (row >= static_cast<int>(list.RowCount())) return;
      list.SelectOnly(row);
      if (list.OnItemClick) list.OnItemClick(row);
    });
  }

  void ShowSelection() {
    const ListView* const list = table_.List();
    const int row = list == nullptr ? -1 : list->SelectedRow();
    showing_ = true;
    if (row < 0) {
      view_.selectionModel()->clear();
    } else if (view_.currentIndex().row() != row) {
      view_.setCurrentIndex(table_.index(row, 0));
    }
    showing_ = false;
    if (table_.rowCount() == 0) view_.viewport()->update();
  }

  void PaintEmptyText() {
    QPainter painter(view_.viewport());
    painter.setPen(view_.palette().color(QPalette::PlaceholderText));
    painter.drawText(view_.viewport()->rect().adjusted(12, 8, -12, -8), Qt::AlignCenter | Qt::TextWordWrap,
                     emptyText_);
  }

  QTreeView& view_;
  ListTable& table_;
  const EventGuard& guard_;
  QString emptyText_;
  bool showing_ = false;
  bool painting_ = false;
};

}  // namespace

void WireTable(QTreeView& view, ListTable& table, const EventGuard& guard, const QString& emptyText) {
  view.setModel(&table);
  view.setRootIsDecorated(false);
  view.setUniformRowHeights(true);
  view.setAlternatingRowColors(true);
  view.setAllColumnsShowFocus(true);
  view.setSelectionBehavior(QAbstractItemView::SelectRows);
  view.setSelectionMode(QAbstractItemView::SingleSelection);
  view.setEditTriggers(QAbstractItemView::NoEditTriggers);
  view.setTextElideMode(Qt::ElideMiddle);
  view.header()->setSectionsClickable(true);
  new TableHand(view, table, guard, emptyText);  // owned by the view
}

}  // namespace requite
