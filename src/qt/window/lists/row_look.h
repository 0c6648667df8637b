// SPDX-License-Identifier: MIT
// The look of the program's lists.
#pragma once

class QTableView;

namespace requite {

/// Makes a table view a list of whole rows: one height, alternating shades, no grid, one selected row,
/// Tab leaves it. The selection is pale while the keyboard is elsewhere.
void LookLikeAList(QTableView& view);

/// The leftmost column that is not hidden; 0 for a view without columns.
[[nodiscard]] int LeftmostColumn(const QTableView& view);

}  // namespace requite
