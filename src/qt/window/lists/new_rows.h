// SPDX-License-Identifier: MIT
// Brings rows that were just added into view.
#pragma once

#include <functional>

#include "qt/window/lists/list_table.h"

namespace requite {

/// For lists that the user fills: the row that was added last comes into view.
void ShowNewRows(QTableView& view, const ListTable& table);

/// For lists that a scan fills: while `scanning`, the view stays at the end if it is there. It stays where
/// it is once the user has scrolled up, selected a row or sorted the list.
void FollowNewRows(QTableView& view, const ListTable& table, std::function<bool()> scanning);

}  // namespace requite
