// SPDX-License-Identifier: MIT
// The main window over fakes, used through its site lists.
#pragma once

#include <string>

#include "shell/main_window/form1.h"
#include "support/fakes.h"
#include "support/rows.h"

namespace requite::test {

struct SiteRig {
  /// The user types a Main Site and presses Enter.
  void EnterMainSite(const std::string& text) {
    Controls.txtDomain.UserSets(text);
    Controls.txtDomain.UserPressesEnter();
  }
  void EnterLinkingSite(const std::string& text) {
    Controls.Text1.UserSets(text);
    Controls.Text1.UserPressesEnter();
  }
  /// The user clicks on a row of the list of Main Site k.
  void ClickLinkingSite(int k, int row) {
    LinkingSiteList& list = Data.List1(k);
    list.OnMouseDown(row);
    list.SelectOnly(row);
    list.OnItemClick(row);
  }
  /// The last message box's text.
  [[nodiscard]] std::string LastMessage() const {
    return Services.Dialogs.Boxes.empty() ? "" : Services.Dialogs.Boxes.back().Text;
  }

  TemporaryFolder Folder;
  FakeServices Services;
  Form1 Controls{Services.All, Folder.Folder};
  Project& Data = Controls.Sites;
  ScanLists& Lists = Controls.Lists;
  SiteEditing& Sites = Controls.Editing;
  ProjectFiles& Files = Controls.Files;
  BrowserView& WebBrowser2 = Controls.WebBrowser2;
  bool& Scanning = Controls.State.Scanning;
};

}  // namespace requite::test
