// SPDX-License-Identifier: MIT
// A page becomes queued pages and result rows; what is dropped, what ends the reading, what is followed.
#include "scan/analyser.h"

#include <gmock/gmock.h>

#include "support/analysis_rig.h"
#include "support/generated_page.h"

namespace requite::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kDirectRow = "Direct Link 001 site.example/d/p.htm";

struct AnalyserTest : testing::Test {
  AnalyserTest() {
    rig.Begin("main.example", {"http://www.site.example/start", "partner.example"}, "site.example/d/p.htm");
  }

  AnalysisRig rig;
  ScanState& state = rig.Rig.State;
  FakeEventLoop& Events() { return rig.Rig.Services.EventLoop; }
  /// Acts once, at the first yield after a page was queued.
  void WhenQueued(std::function<void()> act) {
    Events().OnEveryYield = [this, act = std::move(act)] {
      if (rig.Queue().empty()) return;
      act();
      Events().OnEveryYield = nullptr;
    };
  }
};

TEST_F(AnalyserTest, AStopAtAnyYieldQueuesNothingMore) {
  const std::string page = "<a href=/a.htm >\r\n<a href=\"http://main.example/\">\r\n<a href=/b.htm >\r\n";
  rig.Page(page);
  const int yields = Events().Yields;
  ASSERT_GT(yields, 8);
  for (int at = 1; at <= yields; ++at) {
    AnalysisRig stopped;
    stopped.Begin("main.example", {"site.example"}, "site.example/d/p.htm");
    std::size_t before = 0;
    stopped.Rig.Services.EventLoop.AtYield(at, [&] {
      stopped.Rig.State.Scanning = false;
      before = stopped.Queue().size() + stopped.Results().size();
    });
    stopped.Page(page);
    EXPECT_EQ(stopped.Queue().size() + stopped.Results().size(), before) << "stopped at yield " << at;
    EXPECT_THAT(stopped.Steps.Calls, IsEmpty()) << "stopped at yield " << at;
  }
}

TEST_F(AnalyserTest, ASkipLetsTheRestOfThePageBeReadForTheNextSite) {
  WhenQueued([this] {
    state.SiteRow = 2;
    rig.Rig.Lists.List2.Clear();
  });
  rig.Page("<a href=/a.htm >\r\n<a href=/b.htm >\r\n<a href=\"http://partner.example/c.htm\">\r\n");
  EXPECT_THAT(rig.Queue(), ElementsAre("partner.example/c.htm"));
}

TEST_F(AnalyserTest, ARowThatIsGoneEndsThePageWithoutANextStep) {
  WhenQueued([this] { rig.Rig.Sites.List1(1).Clear(); });
  rig.Page("<a href=/a.htm >\r\n<a href=/b.htm >\r\n<a href=/c.htm >\r\n");
  EXPECT_THAT(rig.Queue(), ElementsAre("site.example/a.htm"));
  EXPECT_THAT(rig.Steps.Calls, IsEmpty());
}

TEST_F(AnalyserTest, ALinkWhoseSiteIsGoneFailsBehindItsRow) {
  Events().AtYield(1, [this] { rig.Rig.Sites.List1(1).Clear(); });
  rig.Page("<p>\r\n<a href=\"http://main.example/a.zip\">\r\n");
  EXPECT_THAT(rig.Results(), ElementsAre(kDirectRow));
  EXPECT_FALSE(state.LinkFound);
  EXPECT_THAT(rig.Steps.Calls, IsEmpty());
}

TEST_F(AnalyserTest, TheFullSeenTableStopsTheChainBehindTheQueuedPage) {
  state.PagesQueued = SeenPages::kSlots - 1;
  rig.Page("<a href=/a.htm ><a href=/b.htm >");
  EXPECT_THAT(rig.Queue(), ElementsAre("site.example/a.htm"));
  EXPECT_EQ(state.PagesQueued, SeenPages::kSlots);
  EXPECT_THAT(rig.Steps.Calls, IsEmpty());
}

TEST_F(AnalyserTest, ACountOfLinksBeyondSixteenBitsEndsThePage) {
  state.LinksExpected = state.LinksCounted = 32767;
  rig.Page("<a href=\"http://main.example/\">");
  EXPECT_THAT(rig.Results(), IsEmpty());
  EXPECT_EQ(state.LinksOnSite, 1);
  EXPECT_THAT(rig.Steps.Calls, IsEmpty());
}

TEST_F(AnalyserTest, AVerdictIsForgottenWithWhatItDependsOn) {
  struct Row {
    const char* Value;
    const char* QueuedThen;
    std::function<void()> Change;
  };
  const auto set = [this](const char* key, const char* value) { rig.Rig.Services.Store.Set(key, value); };
  set("chkSecure", "1");
  rig.Rig.Lists.List2.Add({"site.example/queued.htm"});
  const Row rows[] = {
      {"/a.zip", "site.example/a.zip", [this] { state.FileTypes.emplace_back(".zip"); }},
      {"/b.gif", "site.example/b.gif", [&] { set("chkFileTypes", "0"); }},
      {"https://c.example.org/x.htm", "site.example/d/c.example.org/x.htm", [&] { set("chkSecure", "0"); }},
      {"/queued.htm", "site.example/queued.htm", [this] { rig.Rig.Lists.List2.Clear(); }},
      {"d.htm", "site.example/e/d.htm", [this] { rig.At("site.example/e/"); }},
      {"/e.htm", "www.site.example/e.htm", [this] { rig.At("www.site.example/d/"); }},
      {"/f.htm", "site.example/f.htm", [this] { state.ForgetQueuedPages(); }},
      {"http://partner.example", "partner.example/",
       [this] { rig.Rig.Sites.List1(1).Set(0, &LinkingSite::WebsiteUrl, "partner.example"); }},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.Value);
    rig.At("site.example/d/p.htm");
    const std::string link = "<a href=\"" + std::string(row.Value) + "\">\r\n";
    rig.Page(link + link + link);
    const std::vector<std::string> before = rig.Queue();
    rig.Page(link);
    EXPECT_EQ(rig.Queue(), before);
    row.Change();
    rig.Page(link);
    ASSERT_FALSE(rig.Queue().empty());
    EXPECT_EQ(rig.Queue().back(), row.QueuedThen);
  }
}

TEST_F(AnalyserTest, AVerdictIsForgottenAfterAPageThatIsReadInAYield) {
  const std::string link = "<a href=\"a.htm\">\r\n";
  rig.At("site.example/e/p.htm");
  rig.Page(link + link);
  rig.At("site.example/d/p.htm");
  rig.Page(link + link);
  ASSERT_THAT(rig.Queue(), ElementsAre("site.example/e/a.htm", "site.example/d/a.htm"));
  // The inner page ends in the directory of the outer one, and the next fetch begins in another one.
  Events().AtYield(Events().Yields + 6, [&] {
    rig.Page(link);
    rig.At("site.example/f/p.htm");
  });
  rig.Page(link + link);
  EXPECT_THAT(rig.Queue(),
              ElementsAre("site.example/e/a.htm", "site.example/d/a.htm", "site.example/f/a.htm"));
}

TEST_F(AnalyserTest, ALongListOfSitesIsIndexedInSteps) {
  LinkingSiteList& sites = rig.Rig.Sites.List1(1);
  for (int i = 0; i < 20000; ++i)
    sites.Add({"partner.example/" + std::to_string(i) + ".htm", "1", "", "", ""});
  Events().AtYield(Events().Yields + 8,
                   [&] { sites.Set(7, &LinkingSite::WebsiteUrl, "site.example/late.htm"); });
  const int yields = Events().Yields;
  rig.Page("<a href=/late.htm >\r\n<a href=/new.htm >\r\n<a href=\"http://partner.example/19999.htm\" >\r\n");
  EXPECT_THAT(rig.Queue(), ElementsAre("site.example/new.htm"));
  EXPECT_GT(Events().Yields - yields, 20000 / 4096 + 3);
}

/// Both forms read the same pages of one site, one after the other.
struct Pair {
  explicit Pair(PageGenerator& generate) {
    // Other hosts of the domain count as its links only where the Main Site is one of several.
    constexpr std::array<std::string_view, 4> kMainSites = {"main.example/links", "www.main.example",
                                                            "shop.main.example", "shop.main.example"};
    const std::string mainSite = generate.Pick(kMainSites);
    const auto files = generate.Below(3) == 0 ? " 1" : "1";  // any other text than one is off
    const bool rules = generate.Below(3) == 0;
    const int expected = generate.Below(3) == 0 ? generate.Below(3) : 1000;
    const std::string moved = generate.Page(6);
    std::map<std::string, std::string> options;
    for (const char* key : {"chkRedirect", "chkUpdate", "chkAudioEmail", "chkSecure"}) {
      options[key] = generate.Below(4) == 0 ? "0" : "1";
    }
    for (AnalysisRig* rig : {&program, &plain}) {
      rig->Begin(mainSite, {"http://www.partner.example/x", "other.com/a", "x.htm"},
                 "partner.example/d/p.htm");
      rig->Rig.Services.Store.Set("chkFileTypes", files);
      for (const auto& [key, value] : options) rig->Rig.Services.Store.Set(key, value);
      rig->Rig.State.LinksExpected = static_cast<std::int16_t>(expected);
      if (rules) rig->Rig.Sites.lstRules.Add({"Global", "Global", "ExcludeString", "links"});
      FakeInternet& internet = rig->Rig.Services.Internet;
      internet.OnOpen = [&internet, moved] { internet.Bodies[internet.Asked.back()] = moved; };
    }
  }

  AnalysisRig program{Wording::Program};
  AnalysisRig plain{Wording::Plain};
};

/// What a user, or a step that runs in a yield, may change while a page is read.
void ChangeSomething(AnalysisRig& rig, int what) {
  ScanRig& scan = rig.Rig;
  MemorySettings& store = scan.Services.Store;
  const auto flip = [&store](const char* key) { store.Set(key, store.Read(key) == "1" ? "0" : "1"); };
  switch (what) {
    case 0: return flip("chkFileTypes");
    case 1: return flip("chkSecure");
    case 2: scan.Sites.lstRules.Add({"Global", "Global", "ExcludeString", "x.htm"}); return;
    case 3: return scan.Sites.lstRules.Clear();
    case 4: scan.Sites.List1(1).Set(1, &LinkingSite::WebsiteUrl, "partner.example/x.htm"); return;
    case 5: scan.Sites.List1(1).Set(0, &LinkingSite::WebsiteUrl, "other.com"); return;
    case 6: scan.State.FileTypes = {".php"}; return;
    case 7: scan.State.MainSiteKey = "partner.example"; return;
    case 8: return rig.At("shop.partner.example/links/a/");
    case 9: scan.State.SiteRow = 2; [[fallthrough]];
    default: scan.State.ForgetQueuedPages(); return scan.Lists.List2.Clear();
  }
}

/// Makes the change in a yield of the analyser, the same one in both forms.
void ChangeAtYield(Pair& pair, int yield, int what) {
  for (AnalysisRig* rig : {&pair.program, &pair.plain}) {
    rig->Rig.Services.EventLoop.OnEveryYield = [rig, left = yield, what]() mutable {
      if (rig->Rig.Controls.StatusBar1.Panel(2) == "Getting Links" && left-- == 0)
        ChangeSomething(*rig, what);
    };
  }
}

TEST(AnalysePage, AgreesWithThePlainWordingOnGeneratedPages) {
  PageGenerator generate(8);
  std::map<std::string, int> found;
  for (int site = 0; site < 400; ++site) {
    Pair pair(generate);
    for (int page = 0; page < 4; ++page) {
      const std::string body = generate.Page(generate.Below(30));
      if (generate.Below(3) == 0) ChangeAtYield(pair, generate.Below(15), generate.Below(11));
      pair.program.Page(body);
      pair.plain.Page(body);
      ASSERT_EQ(pair.program.Remains(), pair.plain.Remains()) << "site " << site << ", page:\n" << body;
    }
    for (const std::string& row : pair.program.Results()) ++found[row.substr(0, row.find(' '))];
  }
  EXPECT_GT(found["Direct"], 100);
  EXPECT_GT(found["Domain"], 20);
}

TEST(PageLines, SayMovedAsEachLineByItselfInSlicesOfAnySize) {
  PageGenerator generate(10);
  constexpr std::array<std::string_view, 9> kPieces = {
      "302 Found", "301 MOVED Permanently", "<title>", "Document ", "Object ", "moved</title>", "\r", "x",
      "30"};
  for (int i = 0; i < 3000; ++i) {
    std::string text;
    for (int piece = generate.Below(12); piece > 0; --piece) text += generate.Pick(kPieces);
    const auto slice = static_cast<std::size_t>(1 + generate.Below(40));
    PageLines lines(text, {[] { return true; }, slice});
    while (!lines.AtEnd()) {
      lines.Advance();
      bool moved = false;
      for (const char* mark : {"302 found", "301 moved permanently", "<title>document moved</title>",
                               "<title>object moved</title>"}) {
        moved = moved || Contains(lines.Line(), mark, Compare::Text);
      }
      ASSERT_EQ(lines.SaysMoved(), moved) << text << "\n" << lines.Line() << "\n" << slice;
    }
  }
}

}  // namespace
}  // namespace requite::test
