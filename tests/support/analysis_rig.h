// SPDX-License-Identifier: MIT
// Triage and analyser over fakes, in the program's form or in the plain one, and all that a page leaves
// behind as one text, so that the two can be compared.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "scan/analyser.h"
#include "scan/triage.h"
#include "support/plain_page.h"
#include "support/scan_rig.h"

namespace requite::test {

/// Runs the steps of one page for real; those of the controller are only remembered.
class PageSteps : public RecordedSteps {
 public:
  void ProcessPage(PageBody body) override {
    if (Plain) return Plain->ProcessPage(std::string(body.View()));
    Triage->ProcessPage(std::move(body));
  }
  void AnalysePage() override { Analyser->AnalysePage(); }
  void GetMovedPage(std::string address) override {
    ScanContext& scan = *Context;
    Analyser->TakeMovedPage(
        HttpGetText(address, VisitorOf(scan.Settings), scan.Gets, scan.Platform.EventLoop));
  }

  std::unique_ptr<requite::Triage> Triage;
  std::unique_ptr<requite::Analyser> Analyser;
  std::unique_ptr<PlainPage> Plain;
  ScanContext* Context = nullptr;
};

enum class Wording { Program, Plain };

struct AnalysisRig {
  explicit AnalysisRig(Wording wording = Wording::Program) {
    Steps.Context = &Rig.Context;
    if (wording == Wording::Plain) Steps.Plain = std::make_unique<PlainPage>(Rig.Context, Steps);
    Steps.Triage = std::make_unique<Triage>(Rig.Context, Steps);
    Steps.Analyser = std::make_unique<Analyser>(Rig.Context, Steps);
    Rig.State.FileTypes = {".htm", ".php", ".asp"};
    Rig.Controls.StatusBar1.SetPanel(StatusPanel::Page, "");
  }

  /// A scan of the first of the Linking Sites, at its page `url`.
  void Begin(const std::string& mainSite, const std::vector<std::string>& linkingSites,
             const std::string& url) {
    Rig.AddMainSite(mainSite, linkingSites);
    ScanState& state = Rig.State;
    state.Scanning = true;
    state.SiteRow = 1;
    state.MainSiteKey = mainSite;
    NormaliseMainSite(state.MainSiteKey);
    state.CurrentLinkingUrl = linkingSites.at(0);
    state.LinksExpected = 1000;
    At(url);
  }

  /// Makes `url`, without scheme, the current page.
  void At(const std::string& url) {
    Rig.State.PageFull = url;
    Rig.State.PageDir = url.substr(0, url.rfind('/') + 1);
    Rig.State.Page.PageHost = std::string(Before(url, '/'));
  }

  void Page(const std::string& body) { Steps.ProcessPage(body); }

  [[nodiscard]] std::vector<std::string> Queue() const {
    std::vector<std::string> urls;
    for (std::size_t row = 0; row < Rig.Lists.List2.RowCount(); ++row) {
      urls.push_back(Rig.Lists.List2.At(row).Url);
    }
    return urls;
  }

  /// The results, as "Status No. Link URL".
  [[nodiscard]] std::vector<std::string> Results() const {
    std::vector<std::string> rows;
    for (std::size_t row = 0; row < Rig.Sites.List3.RowCount(); ++row) {
      const LinkResult& result = Rig.Sites.List3.At(row);
      rows.push_back(result.Status + " " + result.No + " " + result.LinkUrl);
    }
    return rows;
  }

  /// Everything that a page can have changed.
  [[nodiscard]] std::string Remains() const {
    std::string text;
    const auto say = [&text](const std::string& piece) { text.append(piece).append("|"); };
    const auto rows = [&say](const ListView& list) {
      for (std::size_t row = 0; row < list.RowCount(); ++row) {
        say(std::to_string(list.Colour(row)) + "," + std::to_string(list.Icon(row)));
        for (std::size_t column = 0; column < list.ColumnCount(); ++column) say(list.FieldAt(row, column));
      }
      say("\n");
    };
    for (const ListView* list : std::vector<const ListView*>{&Rig.Sites.List1(1), &Rig.Lists.List2,
                                                             &Rig.Sites.List3, &Rig.Lists.lstErr}) {
      rows(*list);
    }
    for (const std::string& call : Rig.Host.Calls) say(call);
    for (const std::string& call : Steps.Calls) say(call);
    for (const std::string& url : Rig.Services.Internet.Asked) say(url);
    for (const std::string& played : Rig.Services.Sounds.Played) say(played);
    for (int panel = 1; panel <= 4; ++panel) say(Rig.Controls.StatusBar1.Panel(panel));
    const ScanState& state = Rig.State;
    for (const int number : {state.LinksOnSite, int{state.LinksCounted}, state.LinkNumber, state.PagesQueued,
                             int{state.LinkFound}, int{state.RedirectSuspected}, int{state.RedirectFollowed},
                             int{state.Scanning}}) {
      say(std::to_string(number));
    }
    for (const std::string* field : {&state.CurrentLinkingUrl, &state.ReasonNote, &state.RedirectPage,
                                     &state.PageFull, &state.PageDir}) {
      say(*field);
    }
    for (const char* file : {"html0.txt", "html20.txt"}) {
      say(FileExists(Rig.Folder.File(file)) ? ReadFile(Rig.Folder.File(file)) : "none");
    }
    return text;
  }

  ScanRig Rig;
  PageSteps Steps;
};

}  // namespace requite::test
