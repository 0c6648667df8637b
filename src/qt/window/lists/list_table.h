// SPDX-License-Identifier: MIT
// Shows any list of the program in a table, whatever its records are.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <QTimer>
#include <functional>

#include "platform/list_view.h"
#include "qt/window/controls/control_views.h"
#include "qt/window/lists/row_filter.h"

class QTableView;

namespace requite {

/// The rows of one list at a time. The view learns of changes at the next refresh, so a scan may add
/// thousands of rows; until then the view sees the rows of the last refresh.
class ListTable : public QAbstractTableModel, public ListObserver, public RefreshedView {
  Q_OBJECT

 public:
  explicit ListTable(ViewRefresh& refresh);
  ~ListTable() override;

  /// Shows another list, or none. Show another one before a list is destroyed. Without a list the columns of
  /// the last one stay, with their widths.
  void Show(ListView* list);
  [[nodiscard]] ListView* List() const { return list_; }

  /// Shows only the rows that pass, in a moment where the list is long; a null test shows all. The list
  /// itself does not notice, but a selected row that is not shown any more is selected no more, so that no
  /// command acts on a row that nobody sees. `noMatch` is shown while no row passes. For lists where at most
  /// one row can be selected.
  void SetFilter(RowFilter::Test test, const QString& noMatch = {});
  /// To be called when the filter's test may decide differently about any row.
  void FilterAgain();
  [[nodiscard]] const QString& NoMatch() const { return noMatch_; }
  /// The list's row that is shown in a row of the view, and the other way round. -1 for one that is not
  /// there.
  [[nodiscard]] int ListRow(int shown) const;
  [[nodiscard]] int ShownRow(int row) const;

  /// Is told of the list's changes too, before this table's filter looks at the rows. Not owned.
  void AlsoTell(ListObserver* other) { other_ = other; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  void RowAdded(std::size_t row) override;
  void RowRemoved(std::size_t row) override;
  void RowChanged(std::size_t row) override;
  void ListReset() override;
  void SelectionChanged() override { Mark(); }
  void RedrawChanged() override { Mark(); }
  void Apply() override;

  /// True while rows change under the view: its changes of selection are then not the user's.
  [[nodiscard]] bool Applying() const { return applying_; }

  /// Runs after each refresh: the selection or the sort of the list may have changed.
  std::function<void()> OnRefreshed;

 signals:
  /// A refresh has shown rows that were added to others; `row` is the one added last, as the view counts.
  /// Not for rows of a list that was empty or was filled again.
  void Added(int row);

 private:
  void FollowRowCount(std::size_t rows);
  [[nodiscard]] std::size_t RowsPassed() const;
  void WorkOnFilter();

  ListView* list_ = nullptr;
  ListObserver* other_ = nullptr;
  QStringList captions_;
  RowFilter filter_;
  QString noMatch_;
  QTimer filterRest_;      ///< continues a long search once other events have run
  std::size_t shown_ = 0;  ///< rows that the view knows about
  int added_ = -1;         ///< the row added last since the last refresh
  bool changed_ = false;   ///< rows have moved or changed since the last refresh
  bool refilled_ = false;  ///< all rows were replaced since the last refresh
  bool applying_ = false;
};

/// Connects a table view to a table, as a list of whole rows: selection both ways, clicks, right clicks and
/// their keys, double clicks, headers, label edits. `emptyText` is shown while the list has no rows. In a
/// view set to extended selection afterwards, several rows can be selected.
void WireTable(QTableView& view, ListTable& table, const UserEvents& user, const QString& emptyText);

}  // namespace requite
