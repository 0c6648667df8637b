// SPDX-License-Identifier: MIT
// What a click on a column header does.
#pragma once

#include "platform/list_view.h"
#include "platform/services.h"

namespace requite {

/// Sorts a view by a column, counted from 1. The direction flips at every click, whatever column was
/// clicked before, so the first click on a fresh view sorts descending. A view without rows is left as
/// it is. A run-time failure is told in a message box. Returns false after a failure.
bool EnhListView_SortColumns(ListView& view, int columnIndex, Dialogs& dialogs);

/// The same for a Linking Site list, which is not sorted while a scan runs: that is told in a message.
void SortLinkingSites(ListView& view, int columnIndex, bool scanning, Dialogs& dialogs);

}  // namespace requite
