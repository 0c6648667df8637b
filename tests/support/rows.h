// SPDX-License-Identifier: MIT
// Lists as texts for comparisons, and a view that counts what a widget would be told.
#pragma once

#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/list_view.h"

namespace requite::test {

/// The fields of a row, joined by "|".
inline std::string RowText(const ListView& list, std::size_t row) {
  std::string joined;
  for (std::size_t column = 0; column < list.ColumnCount(); ++column) {
    joined += (column == 0 ? "" : "|") + list.FieldAt(row, column);
  }
  return joined;
}

/// The rows in their order.
inline std::vector<std::string> Rows(const ListView& list) {
  std::vector<std::string> rows;
  for (std::size_t row = 0; row < list.RowCount(); ++row) rows.push_back(RowText(list, row));
  return rows;
}

class ViewProbe : public ControlView {
 public:
  explicit ViewProbe(Control& control) : control_(control) { control.SetView(this); }
  ~ViewProbe() override { control_.SetView(nullptr); }
  ViewProbe(const ViewProbe&) = delete;
  ViewProbe& operator=(const ViewProbe&) = delete;

  void Refresh(const Control&) override { ++Refreshes; }
  void TakeFocus() override { ++Focuses; }

  int Refreshes = 0;
  int Focuses = 0;

 private:
  Control& control_;
};

}  // namespace requite::test
