// SPDX-License-Identifier: MIT
// Columns that fill their list's width.
#pragma once

#include <vector>

class QTableView;

namespace requite {

/// Divides the view's width by these shares whenever it changes, until the user drags a column; then the
/// user's widths stay. A share of 0 is a column of numbers, as wide as its caption needs.
void FitColumns(QTableView& view, std::vector<int> shares);

}  // namespace requite
