// SPDX-License-Identifier: MIT
// Lists as texts, for comparisons.
#pragma once

#include <string>
#include <vector>

#include "model/record_list.h"

namespace requite::test {

/// Every field of every row, joined by "|"; rows in order.
template <class Record>
std::vector<std::string> Rows(const RecordList<Record>& list) {
  std::vector<std::string> rows;
  for (std::size_t row = 0; row < list.RowCount(); ++row) {
    std::string joined;
    for (std::size_t column = 0; column < list.ColumnCount(); ++column) {
      joined += (column == 0 ? "" : "|") + list.FieldAt(row, column);
    }
    rows.push_back(joined);
  }
  return rows;
}

}  // namespace requite::test
