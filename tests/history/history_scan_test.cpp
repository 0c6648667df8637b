// SPDX-License-Identifier: MIT
// Scans in the main window and what the history says of them: who is who, what was not scanned, and that the
// scan itself is the same as without a history.
#include <gtest/gtest.h>

#include "history/recorded_scans.h"

namespace requite::test {
namespace {

struct Identity {
  const char* What;
  std::vector<std::string> Sites;
  std::function<void(RecordedScans&)> Between;  ///< two scans
  const char* Told;
};

void Lose(RecordedScans& rig, const std::string& page) { rig.Linking.erase(page); }

TEST(HistoryIdentity, ASiteIsComparedWithItsOwnRecord) {
  for (const Identity& row : std::vector<Identity>{
           {"renamed by the scan and saved", {"far.example"}, [](auto& rig) { rig.Save(); }, ""},
           {"renamed by the scan and not saved", {"far.example"}, [](auto& rig) { rig.Reload(); }, ""},
           {"renamed, and lost",
            {"far.example"},
            [](auto& rig) {
              rig.Save();
              Lose(rig, "far.example/links.html");
            },
            "lost far.example/links.html"},
           {"the same host twice, the second loses",
            {"two.example/1", "two.example/2"},
            [](auto& rig) { Lose(rig, "two.example/2"); },
            "lost two.example/2"},
           {"the same host twice, in another order",
            {"two.example/1", "two.example/2"},
            [](auto& rig) {
              rig.Form.Sites.List1(1).SetSort({true, 0, 1});
              Lose(rig, "two.example/2");
            },
            "lost two.example/2"},
           {"the same host twice, the first removed",
            {"two.example/1", "two.example/2"},
            [](auto& rig) { rig.Form.Sites.List1(1).Remove(0); },
            "removed two.example/1"},
           {"the same host twice, renamed and not saved, in another order",
            {"two.example/x/", "two.example/y/"},
            [](auto& rig) {
              rig.Reload();
              rig.Form.Sites.List1(1).SetSort({true, 0, 1});
              Lose(rig, "two.example/y/l.html");
            },
            "lost two.example/y/"},
           {"edited by the user",
            {"two.example/1"},
            [](auto& rig) {
              rig.Form.Sites.List1(1).Set(0, &LinkingSite::WebsiteUrl, "http://WWW.two.example/2");
            },
            "moved http://WWW.two.example/2"},
           {"one removed, one added",
            {"two.example/1", "far.example"},
            [](auto& rig) {
              rig.Form.Sites.List1(1).Remove(1);
              rig.Form.Sites.List1(1).Add({"new.example", "1", "", "", ""});
            },
            "added new.example; removed far.example"}}) {
    RecordedScans rig;
    rig.Linking = {"far.example/links.html", "two.example/1", "two.example/2",
                   "www.two.example/2",      "new.example/",  "two.example/x/l.html",
                   "two.example/y/l.html"};
    rig.Pages["far.example/"] = "<a href=\"links.html\">links</a>";
    rig.Pages["two.example/x/"] = "<a href=\"l.html\">links</a>";
    rig.Pages["two.example/y/"] = "<a href=\"l.html\">links</a>";
    rig.AddSites("http://www.Main.example", row.Sites);
    rig.Save();
    rig.Scan();
    EXPECT_EQ(rig.Told(), "") << row.What << ": the first scan has nothing to compare with";
    row.Between(rig);
    rig.Scan();
    EXPECT_EQ(rig.Told(), row.Told) << row.What;
    rig.Scan();
    EXPECT_EQ(rig.Read().Counts.AnyLost(), false) << row.What << ": told once";
    EXPECT_EQ(rig.Read().Counts.Of(ChangeKind::Removed), 0) << row.What;
    EXPECT_TRUE(rig.Notices.empty()) << rig.Notices.front();
  }
}

struct ThreeSites : RecordedScans {
  ThreeSites() {
    Linking = {"a.example/", "b.example/", "c.example/"};
    AddSites("main.example", {"a.example", "b.example"});
    AddSites("second.example", {"c.example"});
    Save();
    Scan();
    Linking.clear();
  }
};

TEST(HistoryScan, SitesOutsideOfTheScanTypeAreNotTold) {
  ThreeSites rig;
  rig.Form.Sites.List4.SelectOnly(1);
  rig.Scan(ScanType::SelectedMainSite);
  EXPECT_EQ(rig.Told(), "lost c.example");
  rig.ClickRow(rig.Form.Sites.List4, 0);
  rig.Form.Sites.List1(1).SelectOnly(0);
  rig.Scan(ScanType::SelectedLinkingSite);
  EXPECT_EQ(rig.Told(), "lost a.example");
  rig.Scan();
  EXPECT_EQ(rig.Told(), "lost b.example; still missing a.example; still missing c.example");
}

TEST(HistoryScan, ASiteThatIsNotScannedKeepsItsRecordFromOthersOfItsHost) {
  RecordedScans rig;
  rig.AddSites("main.example", {"two.example/1", "two.example/2"});
  rig.Save();
  rig.Scan();
  LinkingSiteList& list = rig.Form.Sites.List1(1);
  list.Remove(0);
  list.Set(0, &LinkingSite::WebsiteUrl, "two.example/9");
  list.Add({"two.example/1", "1", "", "", ""});
  list.SelectOnly(0);
  rig.Scan(ScanType::SelectedLinkingSite);
  const ChangeList changes = rig.Read();
  ASSERT_EQ(changes.Changes.size(), 1U);
  EXPECT_EQ(changes.Changes[0].Site.UrlBefore, "two.example/9");
  EXPECT_EQ(changes.Changes[0].Before->UrlBefore, "two.example/2");
}

TEST(HistoryScan, SitesThatAStopOrASkipLeftOutAreToldByTheNextScan) {
  const std::vector<std::string> lost = {"", "lost a.example", "lost a.example; lost b.example"};
  for (int page = 1; page <= 3; ++page) {
    ThreeSites rig;
    rig.ScanAndPress(rig.Form.cmdStop, page);
    const ChangeList stopped = rig.Read();
    // A scan in which no site was finished leaves no record.
    EXPECT_EQ(stopped.Scan->Complete, page == 1);
    EXPECT_EQ(rig.Told(), lost[static_cast<std::size_t>(page - 1)]);
    rig.Scan();
    EXPECT_EQ(rig.Read().Counts.Of(ChangeKind::Lost), 4 - page);
    EXPECT_TRUE(rig.Read().Scan->Complete);
  }
  for (const bool hidden : {false, true}) {
    ThreeSites rig;
    rig.ScanAndPress(hidden ? static_cast<Button&>(rig.Form.cmdNextSearch) : rig.Form.cmdSkip, 2);
    EXPECT_EQ(rig.Told(), "lost a.example; lost c.example");
    EXPECT_TRUE(rig.Read().Scan->Complete);
    rig.Scan();
    EXPECT_EQ(rig.Told(), "lost b.example; still missing a.example; still missing c.example");
  }
}

TEST(HistoryScan, LostFoundAndLostAgainWithAWordOfTheUser) {
  ThreeSites rig;
  rig.Linking = {"b.example/", "c.example/"};
  rig.Scan();
  EXPECT_EQ(rig.Told(), "lost a.example");
  EXPECT_EQ(rig.Form.Changed->Words(), "1 lost");
  {
    HistoryFile history(rig.Folder.Folder, SqliteStore::Open::ToWrite);
    for (const SiteRecord& site : SitesNamed(history, rig.Path, "http://WWW.A.example/")) {
      Acknowledge(history, rig.Path, site, "moving house", "2026-01-02T16:00:00Z");
    }
  }
  EXPECT_EQ(rig.Told(), "");
  rig.Silent = {"a.example"};
  rig.Scan();
  EXPECT_EQ(rig.Told(), "") << "a night of silence is no change";
  rig.Silent.clear();
  rig.Scan();
  EXPECT_EQ(rig.Read({{}, {}, true}).Changes.at(0).Why, "moving house");
  EXPECT_EQ(rig.Read({{}, {}, true}).Changes.at(0).Site.Since, "2026-01-02T15:02:00Z");
  rig.Linking.insert("a.example/");
  rig.Scan();
  EXPECT_EQ(rig.Told(), "found again a.example");
  rig.Linking.erase("a.example/");
  rig.Scan();
  EXPECT_EQ(rig.Told(), "lost a.example");
  EXPECT_EQ(rig.Read().Changes.at(0).Site.Since, "2026-01-02T15:06:00Z");
  std::string drawn;
  HistoryFile history(rig.Folder.Folder, SqliteStore::Open::ToRead);
  for (const PastResult& each : LastResults(history, rig.Read().Changes.at(0).Site)) {
    drawn += std::to_string(each.Found) + std::string(WordOf(each.State)) + " ";
  }
  EXPECT_EQ(drawn, "1ok 0none 0unreachable 0none 1ok 0none ");
}

TEST(HistoryScan, OfTwoScansThatShowNothingOfASiteTheLastWordCounts) {
  ThreeSites rig;
  rig.Silent = {"a.example"};
  rig.StatusOf = {{"b.example", "503 Busy"}, {"c.example", "404 Gone"}};
  rig.Scan();
  EXPECT_EQ(rig.Told(), "lost c.example; unreachable a.example; unreachable b.example");
  rig.Silent.clear();
  rig.Scan();
  EXPECT_EQ(rig.Told(), "lost a.example; unreachable b.example; still missing c.example");
}

TEST(HistoryScan, LinksAreFoundInASortedListAndAUserMayEditInMidScan) {
  RecordedScans rig;
  rig.Services.Store.Set("chkAuto2", "0");
  rig.Linking = {"two.example/1", "two.example/2", "z.example/"};
  rig.AddSites("main.example", {"z.example", "two.example/1", "two.example/2"});
  rig.Save();
  rig.Form.Sites.List3.SetSort({true, 4, 1});
  rig.Scan();
  const auto page = [&](std::size_t i) {
    return rig.Read({{}, {}, true}).Changes.at(i).Site.Links.at(0).Page;
  };
  EXPECT_EQ(page(0), "z.example");
  rig.Scan(ScanType::AllMainSites, [&](int number) {
    // The scan goes on by row numbers, so the last site is not reached, and no record is mixed up.
    if (number == 2) rig.Form.Sites.List1(1).Remove(0);
  });
  EXPECT_EQ(rig.Read().Counts.Words(), "1 removed");
}

TEST(HistoryScan, IsTheSameScanAsWithoutAHistory) {
  std::vector<std::string> seen;
  for (const char* history : {"0", "1"}) {
    RecordedScans rig(history);
    rig.Linking = {"a.example/"};
    rig.Silent = {"c.example"};
    rig.AddSites("main.example", {"a.example", "b.example", "c.example"});
    rig.Save();
    rig.Scan();
    rig.Scan();
    rig.Save();
    EXPECT_EQ(FileExists(rig.Folder.File("history.db")), *history == '1');
    std::string all = ReadFile(rig.Path) + ReadFile(rig.Folder.File("tempreport.html"));
    for (const auto& [key, value] : rig.Services.Store.Values) {
      if (key != "chkhistory" && key != "lastproject") all += key + "=" + value + "\n";
    }
    all += std::to_string(rig.Services.EventLoop.Yields) + " yields";
    seen.push_back(std::move(all));
  }
  EXPECT_EQ(seen[0], seen[1]);
}

TEST(HistoryScan, AProjectThatWasNeverSavedIsNotRecorded) {
  RecordedScans rig;
  rig.AddSites("main.example", {"a.example"});
  rig.Scan();
  ASSERT_EQ(rig.Notices.size(), 1U);
  EXPECT_EQ(rig.Notices[0], "This scan is not in the history: the project has not been saved yet.");
  EXPECT_FALSE(FileExists(rig.Folder.File("history.db")));
  rig.Save();
  rig.Scan();
  EXPECT_TRUE(rig.Read().Scan);
  rig.Form.cmdNew.Click();
  rig.AddSites("main.example", {"b.example"});
  rig.Scan();
  EXPECT_EQ(rig.Notices.size(), 2U) << "a new project is not the one before";
}

}  // namespace
}  // namespace requite::test
