// SPDX-License-Identifier: MIT
// What every list shows, whatever its rows hold: fields, row colours and icons, the selection, the sort.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/controls.h"

namespace requite {

/// Row colours, as numbers of the form blue * 65536 + green * 256 + red.
inline constexpr std::uint32_t kDefaultColour = 0;
inline constexpr std::uint32_t kBlue = 16711680;
inline constexpr std::uint32_t kGreen = 65280;
inline constexpr std::uint32_t kRed = 255;

/// How a view orders its rows. Starts unsorted, ascending, on column 0.
struct SortState {
  bool Sorted = false;
  int SortKey = 0;
  int SortOrder = 0;  ///< 0 ascending, 1 descending
};

/// Is told of the changes of one list, row by row; row numbers are those after the change.
class ListObserver {
 public:
  virtual ~ListObserver() = default;
  virtual void RowAdded(std::size_t row) = 0;
  virtual void RowRemoved(std::size_t row) = 0;
  virtual void RowChanged(std::size_t row) = 0;
  /// Any row may have changed: the list was emptied or sorted.
  virtual void ListReset() = 0;
  virtual void SelectionChanged() = 0;
  /// The drawing was held back or is resumed.
  virtual void RedrawChanged() {}
};

/// A list view of any record. Rows and columns are counted from 0; a selected row of -1 means none.
class ListView : public Control {
 public:
  using Control::Control;

  [[nodiscard]] virtual std::size_t RowCount() const = 0;
  [[nodiscard]] virtual std::size_t ColumnCount() const = 0;
  [[nodiscard]] virtual std::string_view Caption(std::size_t column) const = 0;
  /// These throw Subscript for a row or column that does not exist.
  [[nodiscard]] virtual const std::string& FieldAt(std::size_t row, std::size_t column) const = 0;
  virtual void SetFieldAt(std::size_t row, std::size_t column, std::string_view value) = 0;
  [[nodiscard]] virtual std::uint32_t Colour(std::size_t row) const = 0;
  [[nodiscard]] virtual int Icon(std::size_t row) const = 0;
  virtual void SetColour(std::size_t row, std::uint32_t colour) = 0;
  virtual void SetIcon(std::size_t row, int icon) = 0;
  virtual void Remove(std::size_t row) = 0;
  virtual void Clear() = 0;

  /// The selected row, or -1; with several selected rows the one selected last.
  [[nodiscard]] virtual int SelectedRow() const = 0;
  [[nodiscard]] virtual bool IsSelected(std::size_t row) const = 0;
  /// Makes this the only selected row (-1: none) without any action.
  virtual void SelectOnly(int row) = 0;
  /// Adds a row to the selection.
  virtual void AlsoSelect(std::size_t row) = 0;

  [[nodiscard]] virtual const SortState& Sort() const = 0;
  /// Takes a new sort state and orders the rows by it. Equal rows keep their order.
  virtual void SetSort(const SortState& sort) = 0;

  /// With false the view stays as it is on screen, however the rows change; true draws it again.
  virtual void SetRedraw(bool redraw) = 0;
  [[nodiscard]] virtual bool Redraw() const = 0;

  /// The one observer; not owned, may be null.
  virtual void SetObserver(ListObserver* observer) = 0;

  /// A right press on a row selects it, as a left press does.
  bool RightPressSelects = false;
  /// A left press beside the rows clears the selection and counts as a click. When false, it does nothing.
  bool PressBesideSelectsNone = false;

  /// What the user did. `row` is -1 beside the rows.
  std::function<void(int row)> OnItemClick;
  std::function<void(int row)> OnMouseDown;
  std::function<void(int row)> OnRightButtonDown;
  std::function<void(int row)> OnRightButtonUp;
  std::function<void(int row)> OnDoubleClick;
  std::function<void(int row)> OnLabelEdit;
  std::function<void(int column)> OnColumnClick;
};

}  // namespace requite
