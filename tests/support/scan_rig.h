// SPDX-License-Identifier: MIT
// A project, its lists and the controls of a scan over fakes, for tests of single scan steps.
#pragma once

#include <string>
#include <vector>

#include "scan/analyser.h"
#include "scan/controller.h"
#include "scan/fetcher.h"
#include "scan/scan_context.h"
#include "scan/triage.h"
#include "support/fakes.h"
#include "support/rows.h"

namespace requite::test {

/// Remembers what a scan asked of the parts above it.
class FakeScanHost : public ScanHost {
 public:
  explicit FakeScanHost(Project& project) : project_(project) {}

  void SelectMainSite(int row) override {
    Calls.push_back("SelectMainSite " + std::to_string(row));
    project_.List4.SelectOnly(row);
    project_.CurrentMainSite = static_cast<std::int16_t>(row + 1);
  }
  void UpdateStats(Counted kind) override {
    const auto number = static_cast<std::size_t>(kind);
    Calls.push_back("UpdateStats " + std::to_string(number));
    ++Raised[number];
  }
  void ResetPageCounters() override { Calls.emplace_back("ResetPageCounters"); }
  void ResetSiteCounters() override { Calls.emplace_back("ResetSiteCounters"); }
  void GenerateLinkReport() override {
    Calls.emplace_back("GenerateLinkReport");
    if (OnReport) OnReport();
  }
  void TellWorkFilesUnwritten() override { Calls.emplace_back("TellWorkFilesUnwritten"); }
  void TellAuthoritiesMissing() override { Calls.emplace_back("TellAuthoritiesMissing"); }
  void SiteBegins(const ScannedSite& site) override {
    Begun.push_back(site);
    if (OnSiteBegins) OnSiteBegins();
  }
  void SiteFinished(const SiteVerdict& verdict) override {
    Verdicts.push_back(verdict);
    if (OnSiteFinished) OnSiteFinished();
  }

  std::vector<std::string> Calls;
  std::array<int, 5> Raised{};
  std::function<void()> OnReport;
  std::function<void()> OnSiteBegins;
  std::function<void()> OnSiteFinished;
  std::vector<ScannedSite> Begun;
  std::vector<SiteVerdict> Verdicts;

 private:
  Project& project_;
};

/// Steps that are only remembered; a test overrides those that it wants to run for real.
class RecordedSteps : public Controller::Next,
                      public Fetcher::Next,
                      public Triage::Next,
                      public Analyser::Next {
 public:
  void ScanNextPage() override { Calls.emplace_back("ScanNextPage"); }
  void NextSite() override { Calls.emplace_back("NextSite"); }
  void FetchPage() override { Calls.emplace_back("FetchPage"); }
  void GetMovedPage(std::string address) override { Calls.push_back("GetMovedPage " + address); }
  void CheckHttpStatus(const std::string& header, const std::string& url) override {
    Calls.push_back("CheckHttpStatus " + header + " " + url);
  }
  void ProcessPage(PageBody body) override { Calls.push_back("ProcessPage " + std::string(body.View())); }
  void AnalysePage() override { Calls.emplace_back("AnalysePage"); }

  std::vector<std::string> Calls;
};

/// The controls of the main window that a scan touches.
struct ScanControls {
  Button Command1{"Command1", "Start Scan"};
  Button cmdStop{"cmdStop", "Stop"};
  Button cmdSkip{"cmdSkip", "Skip"};
  Button cmdNextSearch{"cmdNextSearch", "Skip"};
  Button Command10{"Command10", "V"};
  Button Command11{"Command11", "V"};
  Button cmdNew{"cmdNew", "New"};
  Button cmdOpen{"cmdOpen", "Open"};
  Button cmdSave{"cmdSave", "Save"};
  Button cmdResume{"cmdResume", "Resume"};
  Button cmdViewDatabase{"cmdViewDatabase", "View Database"};
  Button Command2{"Command2", "Export Emails"};
  Button Command3{"Command3", "Delete All Emails"};
  Frame Frame1{"Frame1"};
  Menu mnuScan{"mnuScan", "Scan Type", {"all", "main", "linking"}};
  Menu mnuSkip{"mnuSkipPopup", "", {"linking", "main"}};
  StatusBar StatusBar1{"StatusBar1"};
  ProgressBar pb1{"pb1"};
  TextBox txtDomain{"txtDomain"};
  TextBox Text1{"Text1"};

  ScanWindow Window() {
    return {Command1,   cmdStop,   cmdSkip,         cmdNextSearch, Command10, Command11, cmdNew,  cmdOpen,
            cmdSave,    cmdResume, cmdViewDatabase, Command2,      Command3,  Frame1,    mnuScan, mnuSkip,
            StatusBar1, pb1,       txtDomain,       Text1};
  }
};

/// Everything that a step of a scan is built over, in a temporary program folder.
struct ScanRig {
  /// Adds a Main Site with its Linking Sites and makes it the current one.
  LinkingSiteList& AddMainSite(const std::string& text, const std::vector<std::string>& linkingSites) {
    Sites.List4.Add({text});
    LinkingSiteList& list = Sites.CreateLinkingSiteList();
    for (const std::string& url : linkingSites) list.Add({url, "1", "", "", ""});
    Sites.CurrentMainSite = static_cast<std::int16_t>(Sites.ListCount());
    return list;
  }

  TemporaryFolder Folder;
  WorkFolder Work{Folder.Folder};
  FakeServices Services;
  Project Sites;
  ScanLists Lists;
  ScanState State;
  ScanControls Controls;
  FakeScanHost Host{Sites};
  ScanContext Context{
      Sites,         Lists, State, Controls.Window(), Host, Services.All, Settings(Services.Store),
      Folder.Folder, Work};
};

}  // namespace requite::test
