// SPDX-License-Identifier: MIT
// Passes the user's actions in a table to its list, and shows the list's selection and sort in the table.
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTableView>
#include <QTimer>

#include "qt/window/lists/list_table.h"
#include "qt/window/lists/row_look.h"
#include "qt/window/lists/row_selection.h"
#include "qt/window/lists/row_text.h"
#include "qt/window/look/glyphs.h"

namespace requite {
namespace {

/// Watches a table view's mouse and keyboard, and paints the text of an empty list.
class TableHand : public QObject {
 public:
  TableHand(QTableView& view, ListTable& table, const UserEvents& user, QString emptyText)
      : QObject(&view), view_(view), table_(table), user_(user), emptyText_(std::move(emptyText)) {
    view.installEventFilter(this);
    view.viewport()->installEventFilter(this);
    connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { OnSelection(); });
    connect(view.horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
      Tell(&ListView::OnColumnClick, column);
      ShowSort();  // a refused sort leaves the arrow where it was
    });
    labelEdit_.setSingleShot(true);
    connect(&labelEdit_, &QTimer::timeout, this, [this] { Tell(&ListView::OnLabelEdit, SelectedRow()); });
    table_.OnRefreshed = [this] { ShowState(); };
    ShowState();
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &view_) return OnViewEvent(*event);
    switch (event->type()) {
      case QEvent::MouseButtonPress: return OnPress(*static_cast<QMouseEvent*>(event));
      case QEvent::MouseButtonRelease: return OnRelease(*static_cast<QMouseEvent*>(event));
      case QEvent::MouseButtonDblClick: return OnDoubleClick(*static_cast<QMouseEvent*>(event));
      case QEvent::Paint:
        if (table_.rowCount() == 0) PaintEmptyText();
        return table_.rowCount() == 0;
      default: return false;
    }
  }

 private:
  using Handler = std::function<void(int)> ListView::*;

  void Tell(Handler handler, int number) {
    ListView* const list = table_.List();
    if (list == nullptr || !(list->*handler)) return;
    user_.Run([&] { (list->*handler)(number); });
  }

  [[nodiscard]] int SelectedRow() const {
    return table_.List() == nullptr ? -1 : table_.List()->SelectedRow();
  }

  [[nodiscard]] bool IsMultiple() const {
    return view_.selectionMode() == QAbstractItemView::ExtendedSelection;
  }

  [[nodiscard]] int RowUnder(const QMouseEvent& mouse) const {
    return table_.ListRow(view_.rowAt(mouse.position().toPoint().y()));
  }

  bool OnPress(const QMouseEvent& press) {
    const int row = RowUnder(press);
    Tell(&ListView::OnMouseDown, row);
    if (press.button() == Qt::LeftButton) {
      if (row >= 0 && SelectedRow() == row && !IsMultiple()) {
        Tell(&ListView::OnItemClick, row);
        // A second, slow click on the selected row starts an edit of its label.
        labelEdit_.start(QApplication::doubleClickInterval());
      }
      if (row < 0 && table_.List() != nullptr && table_.List()->PressBesideSelectsNone) Select(-1);
      return false;
    }
    // The view itself would select the row for any button.
    if (press.button() == Qt::RightButton) {
      view_.setFocus(Qt::MouseFocusReason);
      if (row >= 0 && table_.List() != nullptr && table_.List()->RightPressSelects) Select(row);
      Tell(&ListView::OnRightButtonDown, row);
    }
    return true;
  }

  bool OnRelease(const QMouseEvent& release) {
    if (release.button() != Qt::RightButton) return false;
    Tell(&ListView::OnRightButtonUp, RowUnder(release));
    emit view_.customContextMenuRequested(release.position().toPoint());
    return true;
  }

  bool OnDoubleClick(const QMouseEvent& mouse) {
    labelEdit_.stop();
    if (mouse.button() != Qt::LeftButton) return true;
    if (const int row = RowUnder(mouse); row >= 0) Tell(&ListView::OnDoubleClick, row);
    return false;
  }

  bool OnViewEvent(const QEvent& event) {
    if (event.type() == QEvent::ContextMenu) {
      const auto& menu = static_cast<const QContextMenuEvent&>(event);
      if (menu.reason() != QContextMenuEvent::Keyboard) return true;
      PopUpAtRow();
      return true;
    }
    if (event.type() == QEvent::FocusIn || event.type() == QEvent::FocusOut) view_.viewport()->update();
    if (event.type() != QEvent::KeyPress || SelectedRow() < 0) return false;
    if (static_cast<const QKeyEvent&>(event).matches(QKeySequence::Copy)) {
      QGuiApplication::clipboard()->setText(RowsAsText(*table_.List(), SelectedRows(*table_.List())));
      return true;
    }
    switch (static_cast<const QKeyEvent&>(event).key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter: Tell(&ListView::OnDoubleClick, SelectedRow()); return true;
      case Qt::Key_F2: Tell(&ListView::OnLabelEdit, SelectedRow()); return true;
      default: return false;
    }
  }

  /// The popup opens under the mouse, which may be elsewhere when a key asks for it.
  void PopUpAtRow() {
    const QRect row =
        view_.visualRect(table_.index(std::max(0, table_.ShownRow(SelectedRow())), LeftmostColumn(view_)));
    const QRect seen = view_.viewport()->rect();
    Tell(&ListView::OnRightButtonDown, SelectedRow());
    QWidget* const popup = QApplication::activePopupWidget();
    if (popup == nullptr) {
      // Beside the rows when no row is selected.
      const int y =
          SelectedRow() < 0 ? seen.bottom() : std::clamp(row.center().y(), seen.top(), seen.bottom());
      emit view_.customContextMenuRequested({seen.left(), y});
      return;
    }
    const QPoint at(seen.left(), std::clamp(row.bottom(), seen.top(), seen.bottom()));
    popup->move(view_.viewport()->mapToGlobal(at));
  }

  /// The keyboard and the mouse change the selection; getting the focus does not.
  void OnSelection() {
    if (showing_ || table_.Applying() || table_.List() == nullptr) return;
    if (IsMultiple()) {
      TakeSelectedRows(*view_.selectionModel(), *table_.List());
      if (SelectedRow() >= 0) Tell(&ListView::OnItemClick, SelectedRow());
      return;
    }
    const QModelIndexList rows = view_.selectionModel()->selectedRows();
    if (rows.isEmpty()) return ShowSelection();  // a row is only deselected by choosing another
    const int row = table_.ListRow(rows.front().row());
    if (row < 0) return ShowSelection();
    if (row != SelectedRow()) Select(row);
  }

  void Select(int row) {
    labelEdit_.stop();
    ListView* const list = table_.List();
    if (list == nullptr || row >= static_cast<int>(list->RowCount())) return;
    list->SelectOnly(row);
    Tell(&ListView::OnItemClick, row);
  }

  void ShowState() {
    ShowSelection();
    ShowSort();
    // New rows are laid out by any question about places, and later otherwise: this saves a second painting.
    if (view_.isVisible()) static_cast<void>(view_.indexAt({}));
  }

  void ShowSelection() {
    if (IsMultiple()) {
      showing_ = true;
      ShowSelectedRows(*view_.selectionModel(), table_);
      showing_ = false;
      return;
    }
    const int row = table_.ShownRow(SelectedRow());
    const QModelIndexList shown = view_.selectionModel()->selectedRows();
    if (row < 0 ? shown.isEmpty() : shown.size() == 1 && shown.front().row() == row) return;
    showing_ = true;
    if (row < 0) {
      view_.clearSelection();
    } else {
      view_.setCurrentIndex(table_.index(row, LeftmostColumn(view_)));
    }
    showing_ = false;
  }

  void ShowSort() {
    const ListView* const list = table_.List();
    QHeaderView& header = *view_.horizontalHeader();
    const bool sorted = list != nullptr && list->Sort().Sorted;
    if (header.isSortIndicatorShown() != sorted) header.setSortIndicatorShown(sorted);
    if (!sorted) return;
    const auto order = list->Sort().SortOrder == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
    if (header.sortIndicatorSection() != list->Sort().SortKey || header.sortIndicatorOrder() != order) {
      header.setSortIndicator(list->Sort().SortKey, order);
    }
  }

  void PaintEmptyText() {
    const bool isFiltered = table_.List() != nullptr && table_.List()->RowCount() > 0;
    QPainter painter(view_.viewport());
    painter.setPen(ShadeOf(Tone::Faint));
    painter.drawText(view_.viewport()->rect().adjusted(12, 8, -12, -8), Qt::AlignCenter | Qt::TextWordWrap,
                     isFiltered ? table_.NoMatch() : emptyText_);
  }

  QTableView& view_;
  ListTable& table_;
  const UserEvents& user_;
  QString emptyText_;
  QTimer labelEdit_;
  bool showing_ = false;
};

}  // namespace

void WireTable(QTableView& view, ListTable& table, const UserEvents& user, const QString& emptyText) {
  view.setModel(&table);
  LookLikeAList(view);
  new TableHand(view, table, user, emptyText);  // owned by the view
}

}  // namespace requite
