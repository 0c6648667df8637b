// SPDX-License-Identifier: MIT
// The selection of lists in which several rows can be selected.
#pragma once

#include <QItemSelectionModel>

#include "qt/window/lists/list_table.h"

namespace requite {

/// Selects in the list what is selected in the view, the row with the focus last.
void TakeSelectedRows(const QItemSelectionModel& view, ListView& list);

/// Selects in the view what is selected in the list; touches nothing where they agree.
void ShowSelectedRows(QItemSelectionModel& view, const ListTable& table);

}  // namespace requite
