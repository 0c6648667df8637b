// SPDX-License-Identifier: MIT
// A list of records with the state of its view: sort, selection, row colours and icons.
#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <string_view>
#include <utility>
#include <vector>

#include "model/records.h"
#include "model/text_order.h"
#include "platform/list_view.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {

template <class Record>
class RecordList : public ListView {
 public:
  using ListView::ListView;

  [[nodiscard]] std::size_t RowCount() const override { return rows_.size(); }
  [[nodiscard]] bool Empty() const { return rows_.empty(); }
  [[nodiscard]] const Record& At(std::size_t row) const { return RowAt(row).Value; }

  /// Adds a record at the end or, in a sorted list, after the records equal to it. Returns its row.
  std::size_t Add(Record record, int icon = 0, std::uint32_t colour = kDefaultColour) {
    const std::size_t row = PlaceFor(record);
    Insert(row, std::move(record), icon, colour);
    return row;
  }

  /// Puts a record before the row of that number, or at the end, also where a sorted list would not have it.
  /// Throws Subscript for a row beyond the end.
  void Insert(std::size_t row, Record record, int icon = 0, std::uint32_t colour = kDefaultColour) {
    if (row > rows_.size()) throw RuntimeFailure(Failure::Subscript);
    RowEnters(record);
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(row),
                 Row{std::move(record), colour, icon, Mark::None});
    if (selected_ >= static_cast<int>(row)) ++selected_;
    ++version_;
    Tell([&](ListObserver& o) { o.RowAdded(row); });
  }

  void Set(std::size_t row, std::string Record::*field, std::string_view value) {
    Row& changed = RowAt(row);
    RowLeaves(changed.Value);
    (changed.Value.*field).assign(value);
    RowEnters(changed.Value);
    ++version_;
    Tell([&](ListObserver& o) { o.RowChanged(row); });
  }

  /// Rises by one with every change of a field or of the rows. Caches compare it.
  [[nodiscard]] std::uint64_t Version() const { return version_; }

  [[nodiscard]] std::size_t ColumnCount() const override { return Record::Columns().size(); }
  [[nodiscard]] std::string_view Caption(std::size_t column) const override {
    return ColumnAt(column).Caption;
  }
  [[nodiscard]] const std::string& FieldAt(std::size_t row, std::size_t column) const override {
    return RowAt(row).Value.*ColumnAt(column).Field;
  }
  void SetFieldAt(std::size_t row, std::size_t column, std::string_view value) override {
    Set(row, ColumnAt(column).Field, value);
  }
  [[nodiscard]] std::uint32_t Colour(std::size_t row) const override { return RowAt(row).Colour; }
  [[nodiscard]] int Icon(std::size_t row) const override { return RowAt(row).Icon; }
  void SetColour(std::size_t row, std::uint32_t colour) override {
    RowAt(row).Colour = colour;
    Tell([&](ListObserver& o) { o.RowChanged(row); });
  }
  void SetIcon(std::size_t row, int icon) override {
    RowAt(row).Icon = icon;
    Tell([&](ListObserver& o) { o.RowChanged(row); });
  }

  void Remove(std::size_t row) override {
    const Row& leaving = RowAt(row);
    RowLeaves(leaving.Value);
    if (leaving.Selected != Mark::None) --selectedCount_;
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
    if (selected_ == static_cast<int>(row)) {
      ChooseFirstSelected();
    } else if (selected_ > static_cast<int>(row)) {
      --selected_;
    }
    ++version_;
    Tell([&](ListObserver& o) { o.RowRemoved(row); });
  }

  /// Removes every row for which the test is true, in one pass; the test is called once per row. Returns the
  /// number of removed rows.
  template <class Test>
  std::size_t RemoveWhere(Test&& test) {
    const auto picked = [&](const Row& row) {
      if (!test(row.Value)) return false;
      RowLeaves(row.Value);
      return true;
    };
    const std::size_t removed = std::erase_if(rows_, picked);
    if (removed == 0) return 0;
    RecountSelection();
    ++version_;
    Tell([](ListObserver& o) { o.ListReset(); });
    return removed;
  }

  void Clear() override {
    rows_.clear();
    selected_ = -1;
    selectedCount_ = 0;
    ++version_;
    AllRowsLeave();
    Tell([](ListObserver& o) { o.ListReset(); });
  }

  [[nodiscard]] int SelectedRow() const override { return selected_; }
  [[nodiscard]] bool IsSelected(std::size_t row) const override { return RowAt(row).Selected != Mark::None; }
  void SelectOnly(int row) override {
    if (row >= static_cast<int>(rows_.size())) throw RuntimeFailure(Failure::Subscript);
    SelectNone();
    if (row >= 0) Choose(static_cast<std::size_t>(row));
    Tell([](ListObserver& o) { o.SelectionChanged(); });
  }
  void AlsoSelect(std::size_t row) override {
    Choose(row);
    Tell([](ListObserver& o) { o.SelectionChanged(); });
  }

  [[nodiscard]] const SortState& Sort() const override { return sort_; }
  void SetSort(const SortState& sort) override {
    if (sort.SortKey < 0 || sort.SortKey >= static_cast<int>(ColumnCount())) {
      throw RuntimeFailure(Failure::InvalidProperty);
    }
    sort_ = sort;
    if (!sort_.Sorted) return;
    PutInOrder();
    RecountSelection();
    ++version_;
    Tell([](ListObserver& o) { o.ListReset(); });
  }

  void SetRedraw(bool redraw) override {
    redraw_ = redraw;
    Tell([](ListObserver& o) { o.RedrawChanged(); });
  }
  [[nodiscard]] bool Redraw() const override { return redraw_; }

  void SetObserver(ListObserver* observer) override { observer_ = observer; }

 protected:
  /// For lists that keep an index of their rows.
  virtual void RowEnters(const Record&) {}
  virtual void RowLeaves(const Record&) {}
  virtual void AllRowsLeave() {}

 private:
  enum class Mark : std::uint8_t { None, Selected, SelectedLast };

  struct Row {
    Record Value;
    std::uint32_t Colour;
    int Icon;
    Mark Selected;
  };

  [[nodiscard]] const Row& RowAt(std::size_t row) const {
    if (row >= rows_.size()) throw RuntimeFailure(Failure::Subscript);
    return rows_[row];
  }
  [[nodiscard]] Row& RowAt(std::size_t row) {
    if (row >= rows_.size()) throw RuntimeFailure(Failure::Subscript);
    return rows_[row];
  }
  [[nodiscard]] static Column<Record> ColumnAt(std::size_t column) {
    if (column >= Record::Columns().size()) throw RuntimeFailure(Failure::Subscript);
    return Record::Columns()[column];
  }

  [[nodiscard]] bool Before(std::string_view a, std::string_view b) const {
    const int order = CompareText(a, b);
    return sort_.SortOrder == 0 ? order < 0 : order > 0;
  }

  /// Sorts views of the one field that counts, then moves each row once, because rows are large.
  void PutInOrder() {
    const auto field = ColumnAt(static_cast<std::size_t>(sort_.SortKey)).Field;
    std::vector<std::string_view> keys;
    keys.reserve(rows_.size());
    for (const Row& row : rows_) keys.push_back(row.Value.*field);
    std::vector<std::uint32_t> from =
        OrderOf(keys, sort_.SortOrder == 0 ? Direction::Ascending : Direction::Descending);
    for (std::uint32_t start = 0; start < from.size(); ++start) {
      if (from[start] == start) continue;
      // Each place takes its row from the next place of its cycle.
      Row first = std::move(rows_[start]);
      std::uint32_t at = start;
      while (from[at] != start) {
        rows_[at] = std::move(rows_[from[at]]);
        at = std::exchange(from[at], at);
      }
      rows_[at] = std::move(first);
      from[at] = at;
    }
  }

  /// The place after the rows that do not sort after the record. Rows edited since the sort may be out of
  /// order; the search still ends.
  [[nodiscard]] std::size_t PlaceFor(const Record& record) const {
    if (!sort_.Sorted) return rows_.size();
    const auto field = ColumnAt(static_cast<std::size_t>(sort_.SortKey)).Field;
    std::size_t low = 0;
    std::size_t high = rows_.size();
    while (low < high) {
      const std::size_t middle = low + (high - low) / 2;
      if (Before(record.*field, rows_[middle].Value.*field)) {
        high = middle;
      } else {
        low = middle + 1;
      }
    }
    return low;
  }

  /// Selects a row in addition to the others, as the one selected last.
  void Choose(std::size_t row) {
    Row& chosen = RowAt(row);
    if (selected_ >= 0) RowAt(static_cast<std::size_t>(selected_)).Selected = Mark::Selected;
    if (chosen.Selected == Mark::None) ++selectedCount_;
    chosen.Selected = Mark::SelectedLast;
    selected_ = static_cast<int>(row);
  }

  /// A scan selects one row after the other in long lists, so only several selected rows may need a loop.
  void SelectNone() {
    if (selected_ >= 0) {
      RowAt(static_cast<std::size_t>(selected_)).Selected = Mark::None;
      --selectedCount_;
    }
    for (std::size_t row = 0; selectedCount_ > 0; ++row) {
      if (rows_[row].Selected == Mark::None) continue;
      rows_[row].Selected = Mark::None;
      --selectedCount_;
    }
    selected_ = -1;
  }

  /// When any row is selected, one of them must count as selected last.
  void ChooseFirstSelected() {
    selected_ = -1;
    if (selectedCount_ == 0) return;
    const auto first =
        std::find_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.Selected != Mark::None; });
    first->Selected = Mark::SelectedLast;
    selected_ = static_cast<int>(first - rows_.begin());
  }

  /// Finds the selection again after rows have moved.
  void RecountSelection() {
    if (selectedCount_ == 0) return;
    selected_ = -1;
    selectedCount_ = 0;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      if (rows_[row].Selected != Mark::None) ++selectedCount_;
      if (rows_[row].Selected == Mark::SelectedLast) selected_ = static_cast<int>(row);
    }
    if (selected_ < 0) ChooseFirstSelected();
  }

  template <class Message>
  void Tell(Message&& message) {
    if (observer_ != nullptr) message(*observer_);
  }

  std::deque<Row> rows_;
  SortState sort_;
  int selected_ = -1;  // the row marked SelectedLast
  std::size_t selectedCount_ = 0;
  std::uint64_t version_ = 0;
  bool redraw_ = true;
  ListObserver* observer_ = nullptr;
};

}  // namespace requite
