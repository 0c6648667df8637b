// SPDX-License-Identifier: MIT
// The main window over fakes, used through its site lists.
#pragma once

#include <string>

#include "shell/main_window/form1_rig.h"

namespace requite::test {

struct SiteRig : Form1Rig {
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
  void ClickLinkingSite(int k, int row) { ClickRow(Data.List1(k), row); }

  Form1& Controls = Form;
  Project& Data = Controls.Sites;
  ScanLists& Lists = Controls.Lists;
  SiteEditing& Sites = Controls.Editing;
  ProjectFiles& Files = Controls.Files;
  BrowserView& WebBrowser2 = Controls.WebBrowser2;
  bool& Scanning = Controls.State.Scanning;
};

}  // namespace requite::test
