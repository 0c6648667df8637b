// SPDX-License-Identifier: MIT
// The closing row of a site, and which site comes next.
#include <gtest/gtest.h>
#include <pthread.h>

#include "scan/control_rig.h"

namespace requite::test {
namespace {

/// A scan of two Main Sites in its first page.
struct TwoMainSites : ControlRig {
  explicit TwoMainSites(int scanType = 0) {
    AddMainSite("www.main.example", {"http://www.a.example/links.html", "b.example"});
    AddMainSite("second.example", {"c.example"});
    Sites.List4.SelectOnly(0);
    Sites.List1(1).SelectOnly(0);
    Controls.mnuScan.CheckOnly(scanType);
    Control.StartScan();
    Now().PageFull = "a.example/page";
    Host.Calls.clear();
  }
};

TEST(NextSite, BeginsTheNextSiteWithAFreshState) {
  TwoMainSites rig;
  rig.Now().LinkFound = true;
  rig.Now().LinksCounted = 1;
  rig.Now().LinksOnSite = rig.Now().LinkNumber = rig.Now().PagesQueued = 8;
  rig.Lists.List2.Add({"a.example/unread"});
  rig.Set(setting::txtTimeout, "7");
  rig.Control.NextSite();
  EXPECT_EQ(rig.Fetched.back(), "b.example");
  EXPECT_EQ(rig.Now().SiteRow, 2);
  EXPECT_EQ(rig.Now().LinksCounted, 0);
  EXPECT_EQ(rig.Now().LinksOnSite, 0);
  EXPECT_EQ(rig.Now().LinkNumber, 0);
  EXPECT_EQ(rig.Now().PagesQueued, 0);
  EXPECT_FALSE(rig.Now().LinkFound);
  EXPECT_EQ(rig.Now().TimeoutSeconds, 7);
  EXPECT_EQ(rig.Host.Calls, std::vector<std::string>{"UpdateStats 4"});
  EXPECT_EQ(rig.Services.Internet.Aborts, 1);
  EXPECT_FALSE(rig.Controls.Command1.Enabled());
  rig.Control.NextSite();
  EXPECT_EQ(rig.Now().MainSiteKey, "second.example");
  EXPECT_EQ(rig.Host.Calls, (std::vector<std::string>{"UpdateStats 4", "UpdateStats 4", "SelectMainSite 1",
                                                      "UpdateStats 3"}));
  rig.Control.NextSite();
  EXPECT_FALSE(rig.Now().Scanning);
  EXPECT_EQ(rig.Host.Calls.back(), "GenerateLinkReport");
}

struct Road {
  int ScanType;
  std::string Presses;  ///< n: next site, s: skip the site, m: skip the Main Site
  std::string Pages;    ///< the first letter of each page taken; "." at the end when the scan has stopped
};

TEST(NextSite, PressesLeadThroughTheSites) {
  for (const Road& road : {Road{0, "nn", "abc"},
                           {0, "nnn", "abc."},
                           {0, "sss", "abc."},
                           {0, "m", "ac"},
                           {0, "mm", "ac."},
                           {1, "n", "ab"},
                           {1, "nn", "ab."},
                           // A skip moves on as if all sites were to be scanned.
                           {1, "ss", "abc"},
                           {2, "s", "ab"},
                           {2, "n", "a."},
                           {2, "m", "ac"},
                           {2, "mn", "ac."}}) {
    TwoMainSites rig(road.ScanType);
    for (const char press : road.Presses) {
      rig.Controls.mnuSkip.CheckOnly(press == 'm' ? 1 : 0);
      press == 'n' ? rig.Control.cmdNextSearch() : rig.Control.cmdSkip();
    }
    std::string pages;
    for (const std::string& url : rig.Fetched) {
      pages += url == "b.example" || url == "c.example" ? url[0] : 'a';
    }
    if (!rig.Now().Scanning) pages += '.';
    EXPECT_EQ(pages, road.Pages) << "scan type " << road.ScanType << ", presses " << road.Presses;
  }
}

TEST(NextSite, ASkippedMainSiteLeavesTheRequestForTheSitesBehindIt) {
  TwoMainSites rig;
  rig.AddMainSite("third.example", {"d.example", "e.example"});
  rig.Sites.CurrentMainSite = 1;
  rig.Controls.mnuSkip.CheckOnly(1);
  rig.Control.cmdSkip();
  EXPECT_TRUE(rig.Now().SkipRequested);
  rig.Control.NextSite();
  EXPECT_EQ(rig.Fetched.back(), "d.example");
  rig.Controls.mnuSkip.CheckOnly(0);
  rig.Control.NextSite();
  EXPECT_FALSE(rig.Now().SkipRequested);
  EXPECT_EQ(rig.Fetched.back(), "e.example");
  EXPECT_EQ(rig.Sites.List3.At(0).Status, "None Found (Skipped)");
}

TEST(NextSite, AMainSiteWithoutSitesShowsTheFailureAndTheScanStandsStill) {
  TwoMainSites rig;
  rig.Sites.List1(2).Clear();
  rig.Control.NextSite();
  rig.Control.NextSite();
  EXPECT_EQ(rig.LastBox(), "Subscript out of range 9");
  EXPECT_TRUE(rig.Now().Scanning);
  EXPECT_EQ(rig.Fetched.size(), 2U);
  EXPECT_EQ(rig.Sites.CurrentMainSite, 2);
  rig.Control.cmdStop();
  EXPECT_FALSE(rig.Now().Scanning);
}

TEST(NextSite, AfterATimeOutOntoAMainSiteWithoutSitesNoTimerRuns) {
  TwoMainSites rig;
  rig.Sites.List1(2).Clear();
  rig.Control.NextSite();
  rig.Services.timTimeout.Start(1000);
  bool runsUnderTheBox = true;
  rig.Services.Dialogs.OnShow = [&] { runsUnderTheBox = rig.Services.timTimeout.Running; };
  rig.Now().TimeoutSeconds = 1;
  rig.Control.TimeoutTick();
  EXPECT_EQ(rig.LastBox(), "Subscript out of range 9");
  EXPECT_FALSE(runsUnderTheBox);
  EXPECT_EQ(rig.Sites.List3.RowCount(), 2U);
}

TEST(NextSite, ShowsAFailureOfWhatItCallsButNotOneOfItsOwnFirstHalf) {
  TwoMainSites rig;
  rig.Set(setting::cmbAdvance, "few");
  rig.Control.NextSite();  // fails in the page step of the next site
  EXPECT_EQ(rig.LastBox(), "Type mismatch 13");
  EXPECT_EQ(rig.Now().SiteRow, 2);
  rig.Host.OnReport = [] { throw RuntimeFailure(Failure::DiskFull); };
  rig.Set(setting::cmbAdvance, "4");
  rig.Control.NextSite();
  rig.Control.NextSite();  // the last one stops the scan, and the report fails
  EXPECT_EQ(rig.LastBox(), "Disk full 61");
  EXPECT_FALSE(rig.Controls.Command10.Enabled()) << "nothing after the failed report has run";
  rig.Set(setting::txtTimeout, "long");
  EXPECT_THROW(rig.Control.NextSite(), RuntimeFailure);
  EXPECT_THROW(rig.Control.cmdStop(), RuntimeFailure) << "the user's own stop has no handler";
}

void* ScanManySitesThatExpectNothing(void*) {
  constexpr std::size_t kSites = 100000;
  ControlRig rig;
  LinkingSiteList& list = rig.AddMainSite("m", {});
  for (std::size_t i = 0; i < kSites; ++i) list.Add({"x" + std::to_string(i), "0", "", "", ""});
  list.Add({"last.example", "1", "", "", ""});
  rig.Control.StartScan();
  EXPECT_EQ(rig.Sites.List3.RowCount(), kSites);
  EXPECT_EQ(rig.Fetched, std::vector<std::string>{"last.example"});
  rig.Set(setting::cmbAdvance, "99");  // with a limit of 0 a site ends before its first page
  rig.Now().PageLimit = 0;
  for (std::size_t i = 0; i < kSites; ++i) list.SetFieldAt(i, 1, "1");
  rig.Control.StartScan();
  EXPECT_EQ(rig.Sites.List3.RowCount(), kSites + 1);
  EXPECT_FALSE(rig.Now().Scanning);
  return nullptr;
}

TEST(NextSite, ClosesAHundredThousandSitesInARowWithinASmallStack) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, 512 * 1024), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, ScanManySitesThatExpectNothing, nullptr), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

}  // namespace
}  // namespace requite::test
