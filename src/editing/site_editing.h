// SPDX-License-Identifier: MIT
// Changing the site lists by hand: selecting, adding and deleting sites, and the empty project.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "model/project.h"
#include "platform/controls.h"
#include "platform/services.h"

namespace requite {

/// The second Page Builder text of a new project. It differs from the setting's default by one word;
/// projects and settings hold both, so neither may change.
inline constexpr std::string_view kNewProjectHtml2 =
    "Your link HTML will be generate here.  This will be the second part of your generated webpage.";

/// The controls of the main window that the site lists are edited with.
struct SiteWindow {
  TextBox& txtDomain;  ///< must be ProgramChange::Silent: only the user's changes are edits
  Button& cmdAdd2;
  Button& cmdDelete;
  Button& cmdEditMain;
  Frame& innerFrame2;
  TextBox& Text1;
  Button& cmdAdd;
  Button& cmbDel;
  Button& cmdEdit;
  TextBox& Label2;
  TextBox& lblblah;
  Button& cmdNextSearch;
  ComboBox& cmbSites;
  TextBox& txtPost2;
  StatusBar& StatusBar1;
};

class SiteEditing {
 public:
  /// `scanning` tells whether a scan runs.
  SiteEditing(Project& project, ScanLists& lists, const SiteWindow& window, Dialogs& dialogs,
              std::function<bool()> scanning)
      : project_(project),
        lists_(lists),
        window_(window),
        dialogs_(dialogs),
        scanning_(std::move(scanning)) {}

  /// Selects a row of List4, counted from 0 (-1: none), and runs the steps of a click on it.
  /// Throws Subscript for a row that does not exist.
  void SelectMainSite(int row);

  /// The steps of a click in List4, on the row that is selected there.
  void List4_Click();
  /// A mouse press in the list of Main Site k makes that the current one.
  void List1_MouseDown(int k);
  /// A click on a row of a Linking Site list; -1 is a click beside the rows.
  void List1_ItemClick(int row);

  void Text1_Change();
  void txtDomain_Change();

  /// Adds the Linking Site in Text1 to the current list. Failures are ignored.
  void cmdAdd();
  /// Adds the Main Site in txtDomain and selects it.
  void cmdAdd2();
  /// Deletes the Linking Site chosen in the current list; without a chosen row nothing happens.
  void cmbDel();

  /// Empties the project, with the Page Builder texts that a new one starts with. Leaves the flags
  /// ProjectSaved and JustLoaded, the errors and the statistics alone.
  void NewProject();

  /// Sets the handlers of the window's own controls and of List4 to the operations above.
  void WireWindow();
  /// The same for one Linking Site list; for Project::OnListCreated.
  void WireList(LinkingSiteList& list, int k);

 private:
  void ShowListOf(int n);
  [[nodiscard]] LinkingSiteList& CurrentList();
  void DeleteLinkingSite(LinkingSiteList& list, int number);
  void EnableNextSearch();

  Project& project_;
  ScanLists& lists_;
  SiteWindow window_;
  Dialogs& dialogs_;
  std::function<bool()> scanning_;
};

}  // namespace requite
