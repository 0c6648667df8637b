// SPDX-License-Identifier: MIT
// A project with the controls of its site lists over fakes, wired as in the main window.
#pragma once

#include <string>
#include <vector>

#include "model/project_files.h"
#include "model/site_editing.h"
#include "support/fakes.h"

namespace requite::test {

struct SiteControls {
  TextBox txtDomain{"txtDomain", "", TextBox::ProgramChange::Silent};
  Button cmdAdd2{"cmdAdd2", "Add"};
  Button cmdDelete{"cmdDelete", "Del"};
  Button cmdEditMain{"cmdEditMain", "Edit"};
  Frame innerFrame2{"innerFrame2"};
  TextBox Text1{"Text1"};
  Button cmdAdd{"cmdAdd", "Add"};
  Button cmbDel{"cmbDel", "Del"};
  Button cmdEdit{"cmdEdit", "Edit"};
  TextBox Label2{"Label2"};
  TextBox lblblah{"lblblah"};
  Button cmdNextSearch{"cmdNextSearch", "Skip"};
  ComboBox cmbSites{"cmbSites"};
  TextBox txtPost2{"txtPost2", "http://"};
  StatusBar StatusBar1{"StatusBar1"};

  SiteControls() {
    for (Control* each :
         std::vector<Control*>{&cmdAdd2, &cmdDelete, &cmdEditMain, &Text1, &cmdAdd, &cmbDel, &cmdEdit}) {
      each->SetEnabled(false);
    }
    innerFrame2.SetVisible(false);
  }

  SiteWindow Window() {
    return {txtDomain, cmdAdd2, cmdDelete, cmdEditMain,   innerFrame2, Text1,    cmdAdd,    cmbDel,
            cmdEdit,   Label2,  lblblah,   cmdNextSearch, cmbSites,    txtPost2, StatusBar1};
  }
};

struct SiteRig {
  SiteRig() {
    Sites.WireWindow();
    Data.OnListCreated = [this](LinkingSiteList& list, int k) { Sites.WireList(list, k); };
  }

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
  Project Data;
  ScanLists Lists;
  SiteControls Controls;
  bool Scanning = false;
  SiteEditing Sites{Data, Lists, Controls.Window(), Services.Dialogs, [this] { return Scanning; }};
  BrowserView WebBrowser2{"WebBrowser2"};
  ProjectFiles Files{Data, Sites, Settings(Services.Store), Services.Dialogs, Folder.Folder, WebBrowser2};
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
