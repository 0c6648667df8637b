// SPDX-License-Identifier: MIT
// Shows any list of the program in a table, whatever its records are.
#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "platform/list_view.h"
#include "shell/qt/window/control_views.h"

class QTreeView;

namespace requite {

/// The rows of one list at a time. Changes are gathered and told to the view with the next refresh, so
/// that a scan may add rows by the thousand; until then the view sees the rows of the last refresh.
class ListTable : public QAbstractTableModel, public ListObserver, public RefreshedView {
  Q_OBJECT

 public:
  explicit ListTable(ViewRefresh& refresh) : RefreshedView(refresh) {}
  ~ListTable() override;

  /// Shows another list, or none. The list must be let go of before it ends.
  void Show(ListView* list);
  [[nodiscard]] ListView* List() const { return list_; }

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  void RowAdded(std::size_t row) override;
  void RowRemoved(std::size_t row) override;
  void RowChanged(std::size_t row) override;
  void ListReset() override;
  void SelectionChanged() override { Mark(); }
  void Apply() override;

  /// Runs after each refresh: the selection of the list may be another.
  std::function<void()> OnRefreshed;

 private:
  ListView* list_ = nullptr;
  std::size_t shown_ = 0;     ///< rows that the view knows of
  bool onlyAppended_ = true;  ///< since the last refresh, rows came at the end and none went
  bool changed_ = false;
};

/// Wires a tree view to a table: selection both ways, clicks, right clicks, double clicks, headers,
/// label edits. `emptyText` is shown while the list has no rows.
void WireTable(QTreeView& view, ListTable& table, const EventGuard& guard, const QString& emptyText);

}  // namespace requite
