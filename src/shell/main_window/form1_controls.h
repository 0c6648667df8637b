// SPDX-License-Identifier: MIT
// The named controls of the main window, as they stand before anything has run.
#pragma once

#include <array>

#include "model/project.h"
#include "platform/controls.h"
#include "results/statistics.h"
#include "shell/label.h"

namespace requite {

/// Every control of the main window that the project and the scan's lists do not hold. Construction
/// gives captions, tool tips, frames and the start state; handlers are Form1's work.
struct Form1Controls {
  Form1Controls(Project& project, ScanLists& lists);

  Window Main{"Form1"};

  // Tool bar
  Button Command1{"Command1", "Start Scan"};
  Button Command10{"Command10", "V"};
  Button cmdSkip{"cmdSkip", "Skip"};
  Button cmdStop{"cmdStop", "Stop"};
  Button Command9{"Command9", "Options"};
  Button cmdOpen{"cmdOpen", "Open"};
  Button cmdSave{"cmdSave", "Save"};
  Button cmdNew{"cmdNew", "New"};
  Button cmdWebsite{"cmdWebsite", ""};

  // Websites
  Frame Frame1{"Frame1"};
  Frame innerFrame1{"innerFrame1"};
  TextBox txtDomain{"txtDomain", "", TextBox::ProgramChange::Silent};
  Button cmdAdd2{"cmdAdd2", "Add"};
  Button cmdDelete{"cmdDelete", "Del"};
  Button cmdEditMain{"cmdEditMain", "Edit"};
  Button cmdImport2{"cmdImport2", "Import"};
  Frame innerFrame2{"innerFrame2"};
  Label Label2{"Label2"};
  Label lblblah{"lblblah"};
  TextBox Text1{"Text1"};
  Button cmdAdd{"cmdAdd", "Add"};
  Button cmbDel{"cmbDel", "Del"};
  Button cmdEdit{"cmdEdit", "Edit"};
  Button cmdImport{"cmdImport", "Import"};

  // Scan progress and statistics
  Frame Frame6{"Frame6"};
  std::array<TextBox, Statistics::kLabels> lblStats;
  ProgressBar pb1{"pb1"};
  StatusBar StatusBar1{"StatusBar1"};

  // Link results: the tab strip and the pages below it
  Frame Frame2{"Frame2"};
  TabStrip TabStrip1;
  Label lblErr{"lblErr", "Errors/Warnings:"};

  BrowserView WebBrowser1{"WebBrowser1"};
  Button cmdBack{"cmdBack", "Back"};
  Button cmdForward{"cmdForward", "Forward"};
  Button cmdWebStop{"cmdWebStop", "Stop"};
  Button cmdRefresh{"cmdRefresh", "Refresh"};
  Button cmdGo{"cmdGo", "Go"};
  TextBox txtURL{"txtURL"};

  Frame Frame5{"Frame5"};
  Label Label11{"Label11", "Pre-Links HTML"};
  Label Label12{"Label12", "Generated Links"};
  Label Label10{"Label10", "Pre-Link HTML"};
  Label Label13{"Label13", "Options"};
  OptionGroup optAll{"optAll", {"Generate links for all Main Sites", "Generate links for:"}};
  ComboBox Combo3{"Combo3", "Select"};
  CheckBox chkNewWin{"chkNewWin", "Links open in new window"};
  CheckBox chkBullet{"chkBullet", "Bulleted List"};
  Button Command5{"Command5", "Generate Links"};
  Button Command6{"Command6", "Save Webpage"};

  BrowserView WebBrowser2{"WebBrowser2"};
  Button Command8{"Command8", "Save Report As"};
  Button Command8a{"Command8a", "Save Tab Delimited"};

  Frame framePost{"framePost"};
  Label SkinLabel9{"SkinLabel9"};
  OptionGroup optScript{
      "optScript", {"Post results to one URL only:", "Post results to a different URL for each Main Site:"}};
  ComboBox cmbSites{"cmbSites", "Select"};
  TextBox txtPost2{"txtPost2", "http://"};
  Button cmdScriptAdd{"cmdScriptAdd", "Add"};
  Button cmdScriptDel{"cmdScriptDel", "Del"};
  Button cmdPost{"cmdPost", "Post Links Now"};
  Button cmdVariables{"cmdVariables", "View URL Variables"};
  Button cmdExample{"cmdExample", "View Example"};

  // Built but never shown; each keeps its action
  Button cmdDoSearch{"cmdDoSearch", "Start Search"};
  Button cmdResume{"cmdResume", "Resume"};
  Button cmdViewDatabase{"cmdViewDatabase", "View Database"};
  Button Command2{"Command2", "Export Emails"};
  Button Command3{"Command3", "Delete All Emails"};
  TextBox txtSearch{"txtSearch", "Google Search"};
  ComboBox Combo1{"Combo1", "Which Search Type?", {"Google Search", "Yahoo Search"}};
  ComboBox Combo2{
      "Combo2",
      "How Many Search Results?",
      {"~100 Domains", "~200 Domains", "~500 Domains", "~1000 Domains", "~5000 Domains", "~10000 Domains"}};
  Label Label1_2{"Label1(2)", "Email Data"};
  Label Label1_4{"Label1(4)", "Link Results:"};
  Button cmdNextSearch{"cmdNextSearch", "Skip"};
  Button Command11{"Command11", "V"};
  Button Command7{"Command7", "Automation"};
  Button Command12{"Command12", "Command12"};
  Button Command4{"Command4", "Import"};
  Frame Frame3{"Frame3"};
  Frame Frame4{"Frame4"};
  Label Label8{"Label8", "When finished scanning the last website:"};
  ComboBox cmbLastSearch{"cmbLastSearch", "", {"Stop Immediately", "Continue Until Stopped"}};

  // Menus
  Menu mnuFile{"mnuFile", "File", {"New Project", "Open Project", "Import Project", "Save Project", "Exit"}};
  Menu mnuScan{
      "mnuScan",
      "Scan Type",
      {"Scan all main sites", "Just scan the selected main site", "Just scan the selected linking site"}};
  Menu mnuHelp{"mnuHelp", "Help", {"View Help File"}};
  Menu mnuAbout{"mnuAbout", "About", {"About this software"}};
  Menu mnuView{"mnuView", "View", {"Detailed Website Entry Form", "Simple Website Entry Form"}};
  Menu mnuSkipPopup{"mnuSkipPopup", "", {"The current linking site", "The current main site"}};
  Menu Popup1{"Popup1", "", {"Delete Site"}};
  Menu Popup2;

 private:
  void NameToolTips(ScanLists& lists);
  void BuildFrames(Project& project, ScanLists& lists);
  void SetStartState();
};

}  // namespace requite
