// SPDX-License-Identifier: MIT
// The main window over fakes, used through its site lists; lists as texts.
#pragma once

#include <string>
#include <vector>

#include "shell/form1.h"
#include "support/fakes.h"

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

/// Every field of every row, joined by "|"; rows in order.
template <class Record>
std::vector<std::string> Rows(const RecordList<Record>& list) {
  std::vector<std::string> rows;
  for (std::size_t row = 0; row < list.RowCount(); ++row) {
    std::string joined;
    for (std::size_t column = 0; column < list.ColumnCount(); ++column) {
      joined += (column == 0 ? "" : "|") + list.FieldAt(row, column);
    }
    rows.push_back(joined);
  }
  return rows;
}

}  // namespace requite::test
