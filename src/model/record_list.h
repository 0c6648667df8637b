// SPDX-License-Identifier: MIT
// A list of records that is its own view's data: rows, sort state, selection, row colours and icons.
#pragma once

#include <algorithm>
#include <deque>
#include <utility>

#include "model/records.h"
#include "platform/list_view.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {

/// Hears the changes of one list, row by row; row numbers are those after the change.
class ListObserver {
 public:
  virtual ~ListObserver() = default;
  virtual void RowAdded(std::size_t row) = 0;
  virtual void RowRemoved(std::size_t row) = 0;
  virtual void RowChanged(std::size_t row) = 0;
  /// Every row may be another: the list was emptied or sorted.
  virtual void ListReset() = 0;
  virtual void SelectionChanged() = 0;
};

template <class Record>
class RecordList : public ListView {
 public:
  using ListView::ListView;

  [[nodiscard]] std::size_t RowCount() const override { return rows_.size(); }
  [[nodiscard]] bool Empty() const { return rows_.empty(); }
  [[nodiscard]] const Record& At(std::size_t row) const { return RowAt(row).Value; }

  /// Adds a record: at the end, or at its sorted place behind its equals. Returns its row.
  std::size_t Add(Record record, int icon = 0, std::uint32_t colour = kDefaultColour) {
    const std::size_t row = PlaceFor(record);
    RowEnters(record);
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(row),
                 Row{std::move(record), colour, icon, false});
    if (selected_ >= static_cast<int>(row)) ++selected_;
    ++version_;
    Tell([&](ListObserver& o) { o.RowAdded(row); });
    return row;
  }

  void Set(std::size_t row, std::string Record::*field, std::string value) {
    Row& changed = RowAt(row);
    RowLeaves(changed.Value);
    changed.Value.*field = std::move(value);
    RowEnters(changed.Value);
    ++version_;
    Tell([&](ListObserver& o) { o.RowChanged(row); });
  }

  /// Counts up at every change of a row's fields or of the rows; a cache of the list compares it.
  [[nodiscard]] std::uint64_t Version() const { return version_; }

  [[nodiscard]] std::size_t ColumnCount() const override { return Record::Columns().size(); }
  [[nodiscard]] std::string_view Caption(std::size_t column) const override {
    return ColumnAt(column).Caption;
  }
  [[nodiscard]] const std::string& FieldAt(std::size_t row, std::size_t column) const override {
    return RowAt(row).Value.*ColumnAt(column).Field;
  }
  void SetFieldAt(std::size_t row, std::size_t column, std::string value) override {
    Set(row, ColumnAt(column).Field, std::move(value));
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
    RowLeaves(RowAt(row).Value);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
    if (selected_ == static_cast<int>(row)) selected_ = -1;
    if (selected_ > static_cast<int>(row)) --selected_;
    ++version_;
    Tell([&](ListObserver& o) { o.RowRemoved(row); });
  }

  void Clear() override {
    rows_.clear();
    selected_ = -1;
    ++version_;
    AllRowsLeave();
    Tell([](ListObserver& o) { o.ListReset(); });
  }

  [[nodiscard]] int SelectedRow() const override { return selected_; }
  [[nodiscard]] bool IsSelected(std::size_t row) const override { return RowAt(row).Selected; }
  void SelectOnly(int row) override {
    if (row >= static_cast<int>(rows_.size())) throw RuntimeFailure(Failure::Subscript);
    for (Row& each : rows_) each.Selected = false;
    selected_ = row < 0 ? -1 : row;
    if (row >= 0) RowAt(static_cast<std::size_t>(row)).Selected = true;
    Tell([](ListObserver& o) { o.SelectionChanged(); });
  }
  void AlsoSelect(std::size_t row) override {
    RowAt(row).Selected = true;
    selected_ = static_cast<int>(row);
    Tell([](ListObserver& o) { o.SelectionChanged(); });
  }

  [[nodiscard]] const SortState& Sort() const override { return sort_; }
  void SetSort(const SortState& sort) override {
    if (sort.SortKey < 0 || sort.SortKey >= static_cast<int>(ColumnCount())) {
      throw RuntimeFailure(Failure::InvalidProperty);
    }
    sort_ = sort;
    if (!sort_.Sorted) return;
    std::stable_sort(rows_.begin(), rows_.end(),
                     [this](const Row& a, const Row& b) { return Before(a.Value, b.Value); });
    selected_ = -1;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      if (rows_[row].Selected) selected_ = static_cast<int>(row);
    }
    ++version_;
    Tell([](ListObserver& o) { o.ListReset(); });
  }

  /// The one observer; not owned, may be null.
  void SetObserver(ListObserver* observer) { observer_ = observer; }

 protected:
  /// For lists that keep an index of their rows.
  virtual void RowEnters(const Record&) {}
  virtual void RowLeaves(const Record&) {}
  virtual void AllRowsLeave() {}

 private:
  struct Row {
    Record Value;
    std::uint32_t Colour;
    int Icon;
    bool Selected;
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

  [[nodiscard]] bool Before(const Record& a, const Record& b) const {
    const auto field = ColumnAt(static_cast<std::size_t>(sort_.SortKey)).Field;
    const int order = CompareText(a.*field, b.*field);
    return sort_.SortOrder == 0 ? order < 0 : order > 0;
  }

  [[nodiscard]] std::size_t PlaceFor(const Record& record) const {
    if (!sort_.Sorted) return rows_.size();
    const auto place = std::upper_bound(rows_.begin(), rows_.end(), record,
                                        [this](const Record& a, const Row& b) { return Before(a, b.Value); });
    return static_cast<std::size_t>(place - rows_.begin());
  }

  template <class Message>
  void Tell(Message&& message) {
    if (observer_ != nullptr) message(*observer_);
  }

  std::deque<Row> rows_;
  SortState sort_;
  int selected_ = -1;
  std::uint64_t version_ = 0;
  ListObserver* observer_ = nullptr;
};

}  // namespace requite
