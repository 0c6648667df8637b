// SPDX-License-Identifier: MIT
// What the user does with the lists of results and errors.
#include "shell/main_window/links.h"

#include "shell/main_window/form1.h"
#include "shell/main_window/sorting.h"

namespace requite {

LinksControls::LinksControls(ControlIndex& index, const Frame& around, Project& project, ScanLists& lists)
    : Place(index, &around) {
  Take(project.List3, {.OnTab = true});
  Take(lists.lstErr, {.OnTab = true});
}

void LinksControls::Wire(Form1& form) {
  Popup2.OnClick = [&form](int index) { form.Popup.Click(index); };
  form.Sites.List3.OnRightButtonDown = [this](int) { Popup2.PopUp(); };
  form.Sites.List3.OnColumnClick = [&form](int column) {
    EnhListView_SortColumns(form.Sites.List3, column + 1, form.Platform.Dialogs);
  };
  form.Lists.lstErr.OnColumnClick = [&form](int column) {
    EnhListView_SortColumns(form.Lists.lstErr, column + 1, form.Platform.Dialogs);
  };
  form.Lists.lstErr.OnLabelEdit = [&form](int) { form.Web.OpenErrorInside(); };
  form.Lists.lstErr.OnDoubleClick = [&form](int) { form.Web.OpenErrorOutside(); };
}

}  // namespace requite
