// SPDX-License-Identifier: MIT
// What a click on a column header does.
#pragma once

#include "platform/list_view.h"
#include "platform/services.h"

namespace requite {

/// Sorts a view by a column, counted from 1. Each click reverses the direction, whatever column was
/// clicked before, so the first click on a new view sorts descending. A view without rows is left alone.
/// Returns false after a failure, which is shown in a message box.
bool EnhListView_SortColumns(ListView& view, int columnIndex, Dialogs& dialogs);

/// The same for a Linking Site list. While a scan runs it only says that this is not possible.
void SortLinkingSites(ListView& view, int columnIndex, bool scanning, Dialogs& dialogs);

}  // namespace requite
