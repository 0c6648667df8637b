// SPDX-License-Identifier: MIT
// What the user does with the site lists.
#include "shell/main_window/sites.h"

#include "shell/editors/form2.h"
#include "shell/main_window/form1.h"
#include "shell/main_window/sorting.h"

namespace requite {

SitesControls::SitesControls(ControlIndex& index, Project& project) : Place(index) {
  Take(project.List4, {.In = &innerFrame1});
  index.SetDynamic([&project](std::string_view name) -> Control* {
    for (int k = 0; k <= project.ListCount(); ++k) {
      LinkingSiteList& list = project.List1(k);
      if (name == list.Name() || (name == "List1" && list.Visible())) return &list;
    }
    return nullptr;
  });
}

void SitesControls::Wire(Form1& form) {
  form.Editing.WireWindow();
  form.Sites.OnListCreated = [this, &form](LinkingSiteList& list, int k) { WireLinkingSites(form, list, k); };
  cmdDelete.OnClick = [&form] { form.Deletion.cmdDelete(); };
  cmdEditMain.OnClick = [&form] { requite::cmdEditMain(form.Sites, form.Windows); };
  cmdImport2.OnClick = [&form] { form.Windows.Show("Form4a"); };
  cmdEdit.OnClick = [&form] { requite::cmdEdit(form.Sites, form.Windows); };
  cmdImport.OnClick = [&form] { form.Windows.Show("Form4"); };
  form.Sites.List4.OnDoubleClick = [&form](int) { requite::cmdEditMain(form.Sites, form.Windows); };
  Popup1.OnClick = [&form](int) { form.Editing.cmbDel(); };
}

void SitesControls::WireLinkingSites(Form1& form, LinkingSiteList& list, int k) {
  list.SetFrame(&innerFrame2);
  form.Editing.WireList(list, k);
  list.OnRightButtonDown = [this](int) { Popup1.PopUp(); };
  list.OnDoubleClick = [&form](int) { requite::cmdEdit(form.Sites, form.Windows); };
  list.OnColumnClick = [&form, k](int column) {
    SortLinkingSites(form.Sites.List1(k), column + 1, form.State.Scanning, form.Platform.Dialogs);
  };
}

}  // namespace requite
