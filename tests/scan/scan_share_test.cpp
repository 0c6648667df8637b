// SPDX-License-Identifier: MIT
// How far a scan has come: the sites of each scan type and the pages of the current one.
#include "scan/scan_share.h"

#include <gtest/gtest.h>

#include "support/scan_rig.h"

namespace requite::test {
namespace {

struct Share {
  const char* What;
  ScanType Type;
  std::int16_t CurrentMainSite;
  int SitesFinished, PagesDone, PagesQueued;
  std::size_t Sites;
  int Percent;
};

TEST(ScanPercent, IsTheShareOfTheSitesThatAreScannedAndOfThePagesOfTheCurrentOne) {
  Project project;
  for (const int sites : {2, 1}) {
    project.AddMainSite("main.example");
    LinkingSiteList& list = project.List1(project.ListCount());
    for (int i = 0; i < sites; ++i) list.Add({"a.example", "1", "", "", ""});
  }
  constexpr ScanType kAll = ScanType::AllMainSites;
  constexpr ScanType kOneMain = ScanType::SelectedMainSite;
  constexpr ScanType kOneLinking = ScanType::SelectedLinkingSite;
  for (const Share& row : {Share{"no page yet", kAll, 1, 0, 0, 0, 3, 0},
                           {"a site and half of the next one's pages", kAll, 1, 1, 1, 1, 3, 50},
                           {"all sites", kAll, 1, 3, 0, 0, 3, 100},
                           {"one of a Main Site's two", kOneMain, 1, 1, 0, 0, 2, 50},
                           {"a Main Site's only one", kOneMain, 2, 0, 1, 3, 1, 25},
                           {"a Main Site that is gone", kOneMain, 9, 0, 1, 1, 0, 50},
                           {"the one Linking Site", kOneLinking, 1, 0, 1, 3, 1, 25},
                           {"more pages than the queue had", kAll, 1, 0, 9, 0, 3, 33},
                           {"more sites than are left", kAll, 1, 7, 0, 0, 3, 100}}) {
    ScanState state;
    state.ScanType = row.Type;
    project.CurrentMainSite = row.CurrentMainSite;
    state.PagesDone = row.PagesDone;
    state.PagesQueued = row.PagesQueued;
    EXPECT_EQ(SitesToScan(project, state), row.Sites) << row.What;
    EXPECT_EQ(ScanPercent(project, state, row.SitesFinished), row.Percent) << row.What;
  }
}

}  // namespace
}  // namespace requite::test
