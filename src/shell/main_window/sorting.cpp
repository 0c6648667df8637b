// SPDX-License-Identifier: MIT
// Toggles the sort of a view.
#include "shell/main_window/sorting.h"

#include "platform/failure_box.h"

namespace requite {

bool EnhListView_SortColumns(ListView& view, int columnIndex, Dialogs& dialogs) {
  const auto toggle = [&] {
    if (view.RowCount() == 0) return;
    SortState sort = view.Sort();
    sort.Sorted = true;
    sort.SortKey = columnIndex - 1;
    sort.SortOrder = sort.SortOrder == 0 ? 1 : 0;
    view.SetSort(sort);
  };
  return EndInBox(dialogs, toggle, [](const RuntimeFailure& failure) -> MessageBox {
    return {"Error" + std::to_string(failure.Number) + "\t" + failure.Description,
            "Error in Function : EnhListView_SortColumns", Buttons::Ok, BoxIcon::Information};
  });
}

void SortLinkingSites(ListView& view, int columnIndex, bool scanning, Dialogs& dialogs) {
  if (scanning) {
    dialogs.Say("You cannot sort this column while a search is running.");
    return;
  }
  EnhListView_SortColumns(view, columnIndex, dialogs);
}

}  // namespace requite
