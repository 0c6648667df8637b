// SPDX-License-Identifier: MIT
// What is told of each site: when it begins, and how it ended.
#include <gtest/gtest.h>

#include "scan/control_rig.h"

namespace requite::test {
namespace {

std::string Text(const ScannedSite& site) {
  return site.MainSite + "|" + site.LinkingSite + "|" + std::to_string(site.MainSiteNumber) + "|" +
         std::to_string(site.SiteRow);
}

struct SiteScan : ControlRig {
  SiteScan() {
    AddMainSite("www.main.example", {"http://www.a.example/links.html", "b.example"});
    AddMainSite("second.example", {"c.example"});
  }
};

TEST(SiteEvents, EachSiteBeginsBeforeItsFirstPageAndEndsOnceItsResultIsWritten) {
  SiteScan rig;
  std::string order;
  rig.Host.OnSiteBegins = [&] {
    order += "begins with " + std::to_string(rig.Now().PagesDone) + " pages, queued " +
             rig.Lists.List2.At(0).Url + "\n";
  };
  rig.OnFetch = [&] { order += "fetches " + rig.Now().PageUrl + "\n"; };
  rig.Host.OnSiteFinished = [&] {
    order += "ends with " + rig.Sites.List3.At(rig.Sites.List3.RowCount() - 1).Linking + ", row " +
             std::to_string(rig.Now().SiteRow) + "\n";
  };
  rig.Control.StartScan();
  for (int site = 1; site <= 3; ++site) rig.Control.NextSite();
  EXPECT_EQ(order,
            "begins with 0 pages, queued http://www.a.example/links.html\n"
            "fetches http://www.a.example/links.html\nends with a.example, row 1\n"
            "begins with 0 pages, queued b.example\nfetches b.example\nends with b.example, row 2\n"
            "begins with 0 pages, queued c.example\nfetches c.example\nends with c.example, row 1\n");
  ASSERT_EQ(rig.Host.Begun.size(), 3U);
  ASSERT_EQ(rig.Host.Verdicts.size(), 3U);
  for (std::size_t site = 0; site < 3; ++site) {
    EXPECT_EQ(Text(rig.Host.Verdicts[site].Site), Text(rig.Host.Begun[site]));
  }
  EXPECT_EQ(Text(rig.Host.Begun[0]), "www.main.example|http://www.a.example/links.html|1|1");
  EXPECT_EQ(Text(rig.Host.Begun[2]), "second.example|c.example|2|1");
}

TEST(SiteEvents, AStoppedSiteHasNoVerdictAndASearchWithoutASiteHasNoNames) {
  SiteScan rig;
  rig.Control.StartScan();
  rig.Control.cmdStop();
  EXPECT_TRUE(rig.Host.Verdicts.empty());
  rig.Lists.List2.Add({"a.example/page"});
  rig.Control.cmdDoSearch_Click();
  rig.Control.cmdNextSearch();
  ASSERT_EQ(rig.Host.Verdicts.size(), 1U);
  EXPECT_EQ(Text(rig.Host.Verdicts[0].Site), "||0|0");
}

struct Ending {
  const char* What;
  int LinksCounted, LinksExpected;
  bool RedirectSuspected;
  const char* chkRedirect;
  const char* ReasonNote;
  int PagesDone;
  SiteEnd End;
  bool LinksBack, Reached;
  const char* Row;  ///< the site's result from its third field on; empty: no row
};

TEST(SiteEvents, TheVerdictAndTheRowSayWhetherTheSiteLinksBackAndWhetherItWasReached) {
  using enum SiteEnd;
  constexpr const char* kNone = "None Found|000|a.example";
  constexpr const char* kNone404 = "None Found (404 Not found)|000|a.example";
  constexpr const char* kSilent = "None Found (Timeout)|000|a.example";
  constexpr const char* kShort = "Missing 001|000|a.example/page";
  constexpr const char* kMoved = "Redirect Link|001|a.example/out.cgi";
  for (const Ending& row :
       {Ending{"all its links", 2, 2, true, "1", "404 Not found", 3, AllLinks, true, true, ""},
        {"more than expected", 3, 2, false, "1", "", 3, AllLinks, true, true, ""},
        {"too few", 1, 2, true, "1", "", 3, Missing, false, true, kShort},
        {"far too few", 2, 1002, true, "1", "", 3, Missing, false, true, "Missing 1000|000|a.example/page"},
        {"too few, then silent", 1, 2, false, "1", "Timeout", 1, Missing, false, true, kShort},
        {"a redirect is one link", 0, 1, true, "1", "Possible", 1, Redirect, true, true, kMoved},
        {"a redirect is not two links", 0, 2, true, "1", "", 1, Redirect, false, true, kMoved},
        {"redirects are not looked for", 0, 1, true, "0", "", 1, NoneFound, false, true, kNone},
        {"no link", 0, 1, false, "1", "404 Not found", 1, NoneFound, false, true, kNone404},
        {"a blank is no reason", 0, 1, false, "1", " ", 1, NoneFound, false, true, kNone},
        {"no link expected", 0, 0, false, "1", "", 0, NoneFound, true, true, kNone},
        {"silent from the start", 0, 1, false, "1", "Timeout", 1, NoneFound, false, false, kSilent},
        {"skipped at its first page", 0, 1, false, "1", "Skipped", 1, NoneFound, false, false,
         "None Found (Skipped)|000|a.example"},
        {"silent at its second page", 0, 1, false, "1", "Timeout", 2, NoneFound, false, true, kSilent}}) {
    SCOPED_TRACE(row.What);
    SiteScan rig;
    rig.Control.StartScan();
    ScanState& state = rig.Now();
    state.LinkFound = row.LinksCounted > 0;
    state.LinksCounted = static_cast<std::int16_t>(row.LinksCounted);
    state.LinksExpected = static_cast<std::int16_t>(row.LinksExpected);
    state.RedirectSuspected = row.RedirectSuspected;
    rig.Set(setting::chkRedirect, row.chkRedirect);
    state.ReasonNote = row.ReasonNote;
    state.PagesDone = row.PagesDone;
    state.PageFull = "a.example/page";
    state.RedirectPage = "a.example/out.cgi";
    rig.Set(setting::chkUpdate, row.LinksExpected == 1 ? "1" : "0");
    rig.Control.NextSite();
    const SiteVerdict& verdict = rig.Host.Verdicts.at(0);
    EXPECT_EQ(verdict.End, row.End);
    EXPECT_EQ(verdict.LinksBack, row.LinksBack);
    EXPECT_EQ(verdict.Reached, row.Reached);
    EXPECT_EQ(verdict.Reason, row.ReasonNote);
    EXPECT_EQ(verdict.LinksCounted, row.LinksCounted);
    EXPECT_EQ(verdict.LinksExpected, row.LinksExpected);
    EXPECT_EQ(verdict.Url, "http://www.a.example/links.html");
    const std::string result = row.Row;
    ASSERT_EQ(rig.Sites.List3.RowCount(), result.empty() ? 0U : 1U);
    const LinkingSiteList& sites = rig.Sites.List1(1);
    const bool isRedirect = row.End == Redirect;
    EXPECT_EQ(sites.Colour(0), isRedirect ? kGreen : row.End == NoneFound ? kRed : kDefaultColour);
    const bool updated = isRedirect && row.LinksExpected == 1;
    EXPECT_EQ(sites.At(0).WebsiteUrl, updated ? "a.example/out.cgi" : "http://www.a.example/links.html");
    if (result.empty()) continue;
    EXPECT_EQ(rig.Result(0), "main.example|a.example|" + result);
    EXPECT_EQ(rig.Sites.List3.Icon(0), isRedirect ? kIconGood : kIconBad);
    EXPECT_EQ(rig.Sites.List3.Colour(0), isRedirect ? kBlue : kRed);
  }
}

}  // namespace
}  // namespace requite::test
