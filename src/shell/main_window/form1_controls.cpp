// SPDX-License-Identifier: MIT
// Tool tips, frames and the start state of the main window's controls.
#include "shell/main_window/form1_controls.h"

#include <initializer_list>

#include "shell/main_window/results_popup.h"
#include "shell/product.h"

namespace requite {
namespace {

std::vector<TabStrip::Tab> Tabs() {
  return {{"Links", "View Link Results"},
          {"Web", "Visit Linking Sites"},
          {"Pages", "Create link pages based on results"},
          {"Reports", "View Reports"},
          {"Post", "Post links to a database"}};
}

void Disable(std::initializer_list<Control*> controls) {
  for (Control* each : controls) each->SetEnabled(false);
}

void Hide(std::initializer_list<Control*> controls) {
  for (Control* each : controls) each->SetVisible(false);
}

TextBox StatsLabel(int index) {
  return TextBox("lblStats(" + std::to_string(index) + ")", "0", TextBox::ProgramChange::Silent);
}

}  // namespace

Form1Controls::Form1Controls(Project& project, ScanLists& lists)
    : lblStats{StatsLabel(0), StatsLabel(1), StatsLabel(2), StatsLabel(3),
               StatsLabel(4), StatsLabel(5), StatsLabel(6)},
      TabStrip1("TabStrip1", Tabs()),
      Popup2("Popup2", "", ResultsPopup::Captions()) {
  cmdWebsite.SetCaption("Visit " + std::string(product::kSite));
  Frame1.Caption = "Websites";
  Frame2.Caption = "Link Results";
  Frame3.Caption = "Statistics";
  Frame4.Caption = "Options";
  Frame5.Caption = "Page Builder";
  Frame6.Caption = "Scan Progress and Statistics";
  NameToolTips(lists);
  project.txtHTML1.ToolTip = "All HTML on your page that comes before your links goes here.";
  project.txtHTML2.ToolTip =
      "Links will be generated here based on your Links List.  You can edit it afterwards if you wish.";
  project.txtHTML3.ToolTip = "All HTML on your page that comes after your links goes here.";
  BuildFrames(project, lists);
  SetStartState();
}

void Form1Controls::NameToolTips(ScanLists& lists) {
  Command1.ToolTip = "Begin searching for links";
  Command10.ToolTip = "Change the scan type";
  cmdSkip.ToolTip = "Skip the current Linking Site";
  cmdStop.ToolTip = "Stop scanning for links";
  Command9.ToolTip = "Open the options menu";
  cmdOpen.ToolTip = "Open an existing project";
  cmdSave.ToolTip = "Save this project to a file so that you can run it any time";
  cmdNew.ToolTip = "Clear all data and create a new project";
  cmdWebsite.ToolTip = "Open Browser";
  cmdAdd2.ToolTip = "Add a new Main Site";
  cmdDelete.ToolTip = "Delete the main site you have selected below";
  cmdEditMain.ToolTip = "Edit the main site you have selected below";
  cmdImport2.ToolTip = "Import Main Sites from a file";
  cmdAdd.ToolTip = "Add a new Linking Site";
  cmbDel.ToolTip = "Delete the selected Linking Site";
  cmdEdit.ToolTip = "Edit the selected Linking Site";
  cmdImport.ToolTip = "Import Linking Sites from a file or a website";
  Command8.ToolTip = cmdSave.ToolTip;  // both save buttons carry the words of the project's own
  Command8a.ToolTip = cmdSave.ToolTip;
  cmdDoSearch.ToolTip = "Search for valid IP Ranges.";
  cmdNextSearch.ToolTip = "Skip to the next website in your list of sites to check";
  Command7.ToolTip = "Import websites from a file";
  Command4.ToolTip = Command7.ToolTip;
  TabStrip1.ToolTip = "Double Click to view link";
  lists.List2.ToolTip = "These webpages are queued about to be scanned for links to your Main Site";
  cmdBack.ToolTip = "back";
  cmdForward.ToolTip = "forward";
  cmdWebStop.ToolTip = "stop";
  cmdRefresh.ToolTip = "refresh";
  cmdGo.ToolTip = "browse the entered url";
  cmdScriptAdd.ToolTip = "Add a new Script URL";
  cmdScriptDel.ToolTip = "Delete the selected script URL";
}

void Form1Controls::BuildFrames(Project& project, ScanLists& lists) {
  PutInto(Frame1, {&innerFrame1, &innerFrame2});
  PutInto(innerFrame1, {&txtDomain, &cmdAdd2, &cmdDelete, &cmdEditMain, &cmdImport2, &project.List4});
  PutInto(innerFrame2, {&Label2, &lblblah, &Text1, &cmdAdd, &cmbDel, &cmdEdit, &cmdImport});
  PutInto(Frame6, {&lists.List2, &pb1});
  for (TextBox& label : lblStats) label.SetFrame(&Frame6);
  PutInto(Frame2, {&TabStrip1, &project.List3, &lists.lstErr, &lblErr, &WebBrowser1, &cmdBack, &cmdForward,
                   &cmdWebStop, &cmdRefresh, &cmdGo, &txtURL, &Frame5, &WebBrowser2, &Command8, &Command8a,
                   &framePost, &SkinLabel9});
  PutInto(Frame5, {&project.txtHTML1, &project.txtHTML2, &project.txtHTML3, &Label11, &Label12, &Label10,
                   &Label13, &optAll, &Combo3, &chkNewWin, &chkBullet, &Command5, &Command6});
  PutInto(framePost, {&optScript, &project.txtPost, &cmbSites, &txtPost2, &cmdScriptAdd, &cmdScriptDel,
                      &project.lstMulti, &cmdPost, &cmdVariables, &cmdExample});
  PutInto(Frame4, {&Label8, &cmbLastSearch});
}

void Form1Controls::SetStartState() {
  Disable({&cmdSkip, &cmdStop, &cmdAdd2, &cmdDelete, &cmdEditMain});
  // Until a Main Site is selected there is no list to enter Linking Sites in.
  Disable({&innerFrame2, &Text1, &cmdAdd, &cmbDel, &cmdEdit});
  Hide({&innerFrame2, &Text1, &cmdAdd, &cmbDel, &cmdEdit});
  // The Links tab is on show.
  Hide({&WebBrowser1, &cmdBack, &cmdForward, &cmdWebStop, &cmdRefresh, &cmdGo, &txtURL, &Frame5, &WebBrowser2,
        &Command8, &Command8a, &framePost, &SkinLabel9});
  Hide({&cmdDoSearch, &cmdResume, &cmdViewDatabase, &Command2, &Command3, &txtSearch, &Combo1, &Combo2,
        &Label1_2, &Label1_4, &cmdNextSearch, &Command11, &Command7, &Command12, &Command4, &Frame3, &Frame4,
        &Label8, &cmbLastSearch});
  Hide({&mnuView, &mnuSkipPopup, &Popup1, &Popup2});
}

}  // namespace requite
