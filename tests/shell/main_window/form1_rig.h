// SPDX-License-Identifier: MIT
// The main window over fakes, in a temporary program folder, for tests of its wiring.
#pragma once

#include <string>
#include <vector>

#include "shell/main_window/form1.h"
#include "support/fakes.h"
#include "support/rows.h"

namespace requite::test {

struct Form1Rig {
  Form1Rig() { WriteFile(Folder.File("filetypes.txt"), ".zip\r\n"); }

  void AddSites(const std::string& mainSite, const std::vector<std::string>& linkingSites) {
    Form.txtDomain.UserSets(mainSite);
    Form.cmdAdd2.Click();
    for (const std::string& each : linkingSites) {
      Form.Text1.UserSets(each);
      Form.cmdAdd.Click();
    }
  }

  /// What the user's left button on a row does.
  static void ClickRow(ListView& list, int row) {
    if (list.OnMouseDown) list.OnMouseDown(row);
    list.SelectOnly(row);
    if (list.OnItemClick) list.OnItemClick(row);
  }

  /// The last message box's text.
  [[nodiscard]] std::string LastMessage() const {
    return Services.Dialogs.Boxes.empty() ? "" : Services.Dialogs.Boxes.back().Text;
  }
  [[nodiscard]] std::string Setting(const std::string& key) { return Services.Store.Read(key).value_or("-"); }

  TemporaryFolder Folder;
  FakeServices Services;
  Form1 Form{Services.All, Folder.Folder};
};

}  // namespace requite::test
