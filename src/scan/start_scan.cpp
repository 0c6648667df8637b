// SPDX-License-Identifier: MIT
// The start of a scan: what it resets, what it checks, and the first site.
#include <algorithm>

#include "model/file_types.h"
#include "model/visitor.h"
#include "platform/failure_box.h"
#include "platform/text.h"
#include "scan/controller.h"

namespace requite {

void Controller::StartScan(std::int32_t onlyRow) {
  scan_.State.AutoSaveTicks = 0;
  if (!TakeFileTypes()) return;
  scan_.State.OnlyRow = onlyRow;
  scan_.State.ScanType = onlyRow > 0 ? ScanType::SelectedLinkingSite
                                     : static_cast<ScanType>(scan_.Window.mnuScan.FirstChecked());
  ResetForStart();
  if (!ChooseMainSite()) return;
  if (!HasSomethingToScan()) return;
  PlayNextSiteSound();
  SwitchCommandsForStart();
  scan_.Host.SelectMainSite(scan_.Project.CurrentMainSite - 1);
  // A scan of the scan type "selected Linking Site" takes the first row; it only checks that some row is
  // selected.
  scan_.State.SiteRow = std::max(1, onlyRow);
  if (!TakeFirstSite()) return;
  scan_.Work.Claim();
  scan_.State.Scanning = true;
  TellIfAuthoritiesAreMissing();
  TellSiteBegins();
  ScanNextPage();
}

bool Controller::TakeFileTypes() {
  return EndInBox(
      scan_.Platform.Dialogs, [this] { scan_.State.FileTypes = ReadFileTypes(scan_.Folder); },
      ScanFailureBox);
}

/// Runs before the checks: even a start that is refused clears the last results and counts as an edit.
void Controller::ResetForStart() {
  ScanState& state = scan_.State;
  state.LinkFound = false;
  state.RedirectFollowed = false;
  state.LinksOnSite = 0;
  state.PagesDone = 0;
  state.ForgetQueuedPages();
  state.SitesDone = 0;
  scan_.Host.ResetSiteCounters();
  state.LinksCounted = 0;
  state.LinksExpected = 0;
  state.PageFull.clear();
  state.PageDir.clear();
  state.WorkFilesBegun = false;
  state.WorkFilesUnwritten = false;
  state.AuthoritiesMissing = false;
  state.Answers = {};
  state.FaultyHosts.clear();
  scan_.Lists.List2.Clear();
  scan_.Project.List3.Clear();
  scan_.Lists.lstErr.Clear();
  scan_.Project.ProjectSaved = false;
  scan_.Host.ScanBegins();
}

/// Sets CurrentMainSite by the scan type. Without a selected Main Site it is 0, and the checks look at the
/// template list, which is always empty. So the first message never shows.
bool Controller::ChooseMainSite() {
  Project& project = scan_.Project;
  Dialogs& dialogs = scan_.Platform.Dialogs;
  if (scan_.State.ScanType == ScanType::AllMainSites) {
    project.CurrentMainSite = 1;
    return true;
  }
  project.CurrentMainSite = static_cast<std::int16_t>(project.List4.SelectedRow() + 1);
  if (project.CurrentMainSite < 0) {
    dialogs.Say("You must select a Main Site to scan before using this scan type.");
    return false;
  }
  if (scan_.State.ScanType == ScanType::SelectedMainSite && project.List1(project.CurrentMainSite).Empty()) {
    dialogs.Say("You must enter a Linking Site to scan before using this scan type.");
    return false;
  }
  if (scan_.State.ScanType == ScanType::SelectedLinkingSite &&
      project.List1(project.CurrentMainSite).SelectedRow() < 0) {
    dialogs.Say("You must select a Linking Site to scan before using this scan type.");
    return false;
  }
  return true;
}

bool Controller::HasSomethingToScan() {
  TakeMainSiteKey();
  scan_.State.TimeoutSeconds = scan_.Settings.Number(setting::txtTimeout);
  scan_.Host.ResetPageCounters();
  if (IsEmptyOrBlank(scan_.State.MainSiteKey)) {
    scan_.Platform.Dialogs.Say("Please enter the Domain you want to find links to.");
    scan_.Window.txtDomain.SetFocus();
    return false;
  }
  if (scan_.Project.List1(scan_.Project.CurrentMainSite).Empty()) {
    scan_.Platform.Dialogs.Say("Please enter at least one website to search for links.");
    scan_.Window.Text1.SetFocus();
    return false;
  }
  return true;
}

/// Command1 stays enabled until the first search begins, so the user can start twice until then.
void Controller::SwitchCommandsForStart() {
  ScanWindow& window = scan_.Window;
  for (Button* button : {&window.cmdResume, &window.cmdViewDatabase, &window.Command2, &window.Command3,
                         &window.cmdNew, &window.cmdOpen, &window.cmdSave, &window.Command10}) {
    button->SetEnabled(false);
  }
  window.Frame1.SetEnabled(false);
  for (Button* button : {&window.cmdNextSearch, &window.cmdStop, &window.Command11, &window.cmdSkip}) {
    button->SetEnabled(true);
  }
}

void Controller::TellIfAuthoritiesAreMissing() {
  if (!AsksSecurely(scan_.Settings) || scan_.Platform.Connection.HasAuthorities()) return;
  scan_.State.AuthoritiesMissing = true;
  scan_.Host.TellAuthoritiesMissing();
}

bool Controller::TakeFirstSite() {
  const auto take = [this] {
    TakeLinkingSite();
    scan_.Lists.List2.Add({scan_.State.CurrentLinkingUrl});
  };
  return EndInBox(scan_.Platform.Dialogs, take, ScanFailureBox);
}

}  // namespace requite
