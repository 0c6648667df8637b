// SPDX-License-Identifier: MIT
// Triage and analyser over fakes that cost next to nothing, for benchmarks.
#pragma once

#include <benchmark/benchmark.h>

#include <string>

#include "scan/analyser.h"
#include "scan/triage.h"
#include "support/scan_rig.h"

namespace requite::test {

class BenchRig : public Triage::Next, public Analyser::Next, public ScanHost {
 public:
  BenchRig() {
    // As the receive buffer of a large page does, so that the allocator keeps blocks of that size.
    benchmark::DoNotOptimize(std::string(4 << 20, 'x'));
    rig_.AddMainSite("main.example", {"site.example"});
    State().MainSiteKey = "main.example";
    State().FileTypes = {".htm", ".shtm", ".xhtm", ".php", ".phtm", ".asp",
                         ".jsp", ".cfm",  ".cgi",  ".pl",  ".py",   ".do"};
  }

  /// Starts the site again, with an empty queue.
  void NewSite() {
    ScanState& state = State();
    state.Scanning = true;
    state.SiteRow = 1;
    state.LinksExpected = 1000;
    state.ForgetQueuedPages();
    state.CurrentLinkingUrl = "site.example";
    rig_.Lists.List2.Clear();
  }

  void Read(const std::string& url, const std::string& body) {
    State().PageFull = url;
    State().PageDir = url.substr(0, url.rfind('/') + 1);
    State().Page.PageHost = "site.example";
    triage_.ProcessPage(body);
  }

  [[nodiscard]] ScanState& State() { return rig_.State; }
  [[nodiscard]] ScanContext& Context() { return context_; }

  void GetMovedPage(std::string) override {}
  void ScanNextPage() override {}
  void NextSite() override {}
  void ProcessPage(PageBody body) override { triage_.ProcessPage(std::move(body)); }
  void AnalysePage() override { analyser_.AnalysePage(); }

  void SelectMainSite(int) override {}
  void UpdateStats(Counted) override {}
  void ResetPageCounters() override {}
  void ResetSiteCounters() override {}
  void GenerateLinkReport() override {}
  void TellWorkFilesUnwritten() override {}
  void SiteBegins(const ScannedSite&) override {}
  void SiteFinished(const SiteVerdict&) override {}

 private:
  ScanRig rig_;
  ScanContext context_{rig_.Sites,
                       rig_.Lists,
                       rig_.State,
                       rig_.Controls.Window(),
                       *this,
                       rig_.Services.All,
                       Settings(rig_.Services.Store),
                       rig_.Folder.Folder,
                       rig_.Work};
  Triage triage_{context_, *this};
  Analyser analyser_{context_, *this};
};

}  // namespace requite::test
