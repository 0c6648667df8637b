// SPDX-License-Identifier: MIT
// How the main window is built: what lives over what, and which controls each part of it works with.
#include "shell/main_window/form1.h"

#include <chrono>

#include "model/visitor.h"
#include "platform/runtime_failure.h"

namespace requite {

Form1Controls::Form1Controls()
    : MenuBarControls(Controls),
      ToolbarControls(Controls),
      SitesControls(Controls, Sites),
      ProgressControls(Controls, Lists),
      ResultTabsControls(Controls),
      LinksControls(Controls, Frame2, Sites, Lists),
      WebControls(Controls, Frame2),
      PagesControls(Controls, Frame2, Sites),
      ReportsControls(Controls, Frame2),
      PostControls(Controls, Frame2, Sites),
      HiddenControls(Controls, Sites) {
  Controls.Add(Main);
}

Form1::Form1(Services& services, const ProgramFolder& folder)
    : Platform(services),
      Folder(folder),
      Work(folder),
      Settings(services.Store),
      Figures(Settings, lblStats),
      Editing(Sites, Lists,
              {txtDomain, cmdAdd2, cmdDelete, cmdEditMain, innerFrame2, Text1, cmdAdd, cmbDel, cmdEdit,
               Label2, lblblah, cmdNextSearch, cmbSites, txtPost2, StatusBar1},
              services.Dialogs, [this] { return State.Scanning; }),
      Files(Sites, Editing, Settings, services.Dialogs, folder, WebBrowser2),
      Report({Sites, Lists.lstErr, Figures, Settings, services.Clock, services.EventLoop, folder, Work,
              WebBrowser2}),
      Deletion(Sites, Editing, Files, innerFrame2, services.Dialogs, folder,
               [this] { GenerateLinkReport(); }),
      Auto(Files, Settings, folder, State.AutoSaveTicks),
      Web({TabStrip1, WebBrowser1, Sites.List3, Lists.lstErr, lblErr, txtURL}, services.Shell),
      Popup(Sites.List3, services.Clipboard, [this](const std::string& url) { Web.BrowseInWebTab(url); }),
      Saved(Sites.List3, Work, services.Dialogs),
      MadeScan(std::in_place, Sites, Lists, State, WindowOfScan(), *this, services, folder, Work),
      Scan(*MadeScan),
      Database(folder, services.Clock, Figures, Lists.List2),
      Emails(Scan.Context(), Database, [this] { Scan.ScanNextPage(); }),
      Pages(Sites, {optAll, Combo3, chkNewWin, chkBullet}, folder, services.Dialogs),
      PostedLog(Windows),
      Post(NeedsOfPosting(), {optScript, Sites.txtPost, Sites.lstMulti, cmbSites, txtPost2, cmdScriptAdd,
                              cmdScriptDel, cmdPost, cmdVariables, cmdExample, StatusBar1}) {
  WireControls();
  RegisterWindows();
  RegisterHarvestWindows();
}

Form1::~Form1() {
  Platform.Timer1.Stop();
  Platform.Timer1.OnTick = nullptr;
}

void Form1::StartScanOf(std::int32_t onlyRow) {
  if (!State.Scanning && BeforeScan) BeforeScan();
  Scan.StartScan(onlyRow);
}

void Form1::ScanOnly(std::int32_t row) {
  if (State.Scanning || !Command1.EnabledInEffect() || row < 1) return;
  const int k = Sites.List4.SelectedRow() + 1;
  if (k < 1 || k > Sites.ListCount() || row > static_cast<std::int64_t>(Sites.List1(k).RowCount())) return;
  Sites.List1(k).SelectOnly(row - 1);
  StartScanOf(row);
}

void Form1::MakeScanOver(Services& services) {
  MadeScan.emplace(Sites, Lists, State, WindowOfScan(), *this, services, Folder, Work);
}

ScanWindow Form1::WindowOfScan() {
  return {Command1,   cmdStop,   cmdSkip,         cmdNextSearch, Command10, Command11, cmdNew,  cmdOpen,
          cmdSave,    cmdResume, cmdViewDatabase, Command2,      Command3,  Frame1,    mnuScan, mnuSkipPopup,
          StatusBar1, pb1,       txtDomain,       Text1};
}

PostingNeeds Form1::NeedsOfPosting() {
  return {Sites.List3,      Settings,  Platform.Internet,         Platform.EventLoop,
          Platform.Dialogs, PostedLog, [this] { return closed_; }};
}

void Form1::WireControls() {
  MenuBarControls::Wire(*this);
  ToolbarControls::Wire(*this);
  SitesControls::Wire(*this);
  ResultTabsControls::Wire(*this);
  LinksControls::Wire(*this);
  WebControls::Wire();
  PagesControls::Wire(*this);
  ReportsControls::Wire(*this);
  PostControls::Wire(*this);
  HiddenControls::Wire(*this);
}

void Form1::TellWorkFilesUnwritten() {
  if (OnNotice) OnNotice("The work files of a page could not be written. The scan goes on without them.");
}

void Form1::TellAuthoritiesMissing() {
  if (OnNotice)
    OnNotice(
        "This system has no certificate authorities to check secure connections with, so pages are read over "
        "plain HTTP. The package ca-certificates has them.");
}

void Form1::ScanBegins() {
  Tally.Begin(std::chrono::steady_clock::now());
  HttpsOnly.Clear();
  Changed.reset();
  recorder_.reset();
  if (KeepsHistory(Settings)) recorder_.emplace(Sites, Files.OpenPath(), Platform.Clock.UtcDateTime());
  if (OnScanBegins) OnScanBegins();
}

void Form1::StopScan() {
  Tally.Stop();
  if (recorder_) recorder_->ScanIsStopped();
  Scan.cmdStop();
}

void Form1::SkipSite() {
  if (recorder_) recorder_->SiteIsSkipped();
  Scan.cmdSkip();
}

void Form1::SkipSiteWithoutReason() {
  if (recorder_) recorder_->SiteIsSkipped();
  Scan.cmdNextSearch();
}

void Form1::RecordScan() {
  try {
    ScanRecord figures;
    figures.Finished = Platform.Clock.UtcDateTime();
    figures.Type = State.ScanType;
    figures.Pages = Figures.PagesScanned;
    figures.Links = Figures.LinksFound;
    figures.Errors = static_cast<std::int64_t>(Lists.lstErr.RowCount());
    Changed = recorder_->Store(Folder, std::move(figures));
  } catch (const RuntimeFailure& failure) {
    if (OnNotice) OnNotice("This scan is not in the history: " + failure.Description + ".");
  }
  recorder_.reset();
  ShowChangesOfScan();
}

void Form1::ScanEnds() {
  if (recorder_) RecordScan();
  if (OnScanEnds) OnScanEnds();
  if (!HttpsOnly.Empty() && OnHttpsOnly) OnHttpsOnly();
}

void Form1::TurnOnSecureAndScanAgain() {
  if (State.Scanning || !Command1.EnabledInEffect()) return;
  if (ProgramWindow* const options = Windows.Find("frmOptions")) {
    if (auto* const box = options->Controls.Find(setting::chkSecure.Name).As<CheckBox>()) box->SetValue(1);
  }
  Settings.SaveSetting(setting::chkSecure, 1);
  if (State.OnlyRow > 0) return ScanOnly(State.OnlyRow);
  mnuScan.Click(static_cast<int>(State.ScanType));
  Command1.Click();
}

void Form1::SiteBegins(const ScannedSite& site) {
  for (SiteEvents* listener : SiteListeners) listener->SiteBegins(site);
}

void Form1::SiteFinished(const SiteVerdict& verdict) {
  Tally.SiteFinished(verdict);
  if (verdict.HttpsOnly && !AsksSecurely(Settings)) HttpsOnly.Add(verdict.Url);
  if (recorder_) recorder_->SiteFinished(verdict);
  for (SiteEvents* listener : SiteListeners) listener->SiteFinished(verdict);
}

}  // namespace requite
