// SPDX-License-Identifier: MIT
// The main window's lists: selection, popups and sorting.
#include "shell/main_window/form1.h"
#include "shell/main_window/sorting.h"

namespace requite {

void Form1::WireLists() {
  Editing.WireWindow();
  Sites.OnListCreated = [this](LinkingSiteList& list, int k) { WireLinkingSites(list, k); };
  Sites.lstRules.SetVisible(false);
  cmdDelete.OnClick = [this] { Deletion.cmdDelete(); };
  Popup1.OnClick = [this](int) { Editing.cmbDel(); };
  Popup2.OnClick = [this](int index) { Popup.Click(index); };

  Sites.List3.OnRightButtonDown = [this](int) { Popup2.PopUp(); };
  Sites.List3.OnColumnClick = [this](int column) {
    EnhListView_SortColumns(Sites.List3, column + 1, Platform.Dialogs);
  };
  Lists.lstErr.OnColumnClick = [this](int column) {
    EnhListView_SortColumns(Lists.lstErr, column + 1, Platform.Dialogs);
  };
  Lists.lstErr.OnLabelEdit = [this](int) { Web.OpenErrorInside(); };
  Lists.lstErr.OnDoubleClick = [this](int) { Web.OpenErrorOutside(); };
}

void Form1::WireLinkingSites(LinkingSiteList& list, int k) {
  list.SetFrame(&innerFrame2);
  Editing.WireList(list, k);
  list.OnRightButtonDown = [this](int) { Popup1.PopUp(); };
  list.OnColumnClick = [this, k](int column) {
    SortLinkingSites(Sites.List1(k), column + 1, State.Scanning, Platform.Dialogs);
  };
}

}  // namespace requite
