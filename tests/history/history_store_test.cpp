// SPDX-License-Identifier: MIT
// Many scans in one file: dates, pruning, several projects and several programs.
#include <gtest/gtest.h>

#include <thread>

#include "history/change_list.h"
#include "history/record_store.h"
#include "history/store_scan.h"
#include "support/at_every_call.h"
#include "support/fakes.h"

namespace requite::test {
namespace {

/// Stores a scan of one site that links back as often as `found` says. Dates are days from the year 2020 on.
void StoreDay(HistoryFile& history, int day, int found, const std::string& project = "/p.prj") {
  ScanRecord scan;
  scan.Project = project;
  SqliteStatement date(history.Store(), "SELECT strftime('%Y-%m-%dT%H:%M:%SZ', '2020-01-01', ? || ' days')");
  date.Bind(1, std::int64_t{day});
  while (date.Next()) scan.Finished = date.Text(0);
  scan.Started = scan.Finished;
  SiteRecord site;
  site.Main = "main.example";
  site.Host = "a.example";
  site.UrlBefore = site.UrlAfter = "a.example/caf\xe9\x80";
  site.Expected = 1;
  site.Found = found;
  site.State = found > 0 ? SiteState::Ok : SiteState::None;
  if (found > 0) site.Links = {{"Direct Link", "001", "a.example/'\x81"}};
  StoreScan(history, scan, {site}, {});
}

const std::vector<ProjectSite> kSites = {SiteOf("main.example", "a.example")};

TEST(HistoryStore, PruningKeepsTheNewestScansAndLosesNoDate) {
  const TemporaryFolder folder;
  HistoryFile history(folder.Folder, SqliteStore::Open::ToWrite);
  history.Store().Run("PRAGMA synchronous = OFF");
  StoreDay(history, 0, 1);
  // Twice a week, so that the newest 100 are younger than 400 days, and then once a month.
  for (int scan = 1; scan <= 150; ++scan) StoreDay(history, scan * 3, 0);
  EXPECT_EQ(history.Scans("/p.prj").size(), 134U);
  EXPECT_EQ(history.Scans("/p.prj").front().Id, 18);
  for (int scan = 1; scan <= 120; ++scan) StoreDay(history, 450 + scan * 30, 0);
  EXPECT_EQ(history.Scans("/p.prj").size(), 100U);
  const ChangeList missing = ReadChanges(history, "/p.prj", kSites, {});
  ASSERT_EQ(missing.Changes.size(), 1U);
  EXPECT_EQ(WordsOf(missing.Changes[0].Kind), "still missing");
  EXPECT_EQ(missing.Changes[0].Site.Since, "2020-01-04T00:00:00Z");
  StoreDay(history, 5000, 1);
  EXPECT_EQ(ReadChanges(history, "/p.prj", kSites, {}).Counts.Words(), "1 found again") << "not new";
  EXPECT_EQ(PruneScans(history, "/p.prj", "2100-01-01T00:00:00Z"), 0);
  StoreDay(history, 5001, 1, "/other.prj");
  EXPECT_EQ(history.Scans("/p.prj").size(), 100U);
}

TEST(HistoryStore, ChangesSinceADateOrAScan) {
  const TemporaryFolder folder;
  HistoryFile history(folder.Folder, SqliteStore::Open::ToWrite);
  const int found[] = {1, 0, 1, 1, 0};
  for (int day = 0; day < 5; ++day) {
    StoreDay(history, day, found[day]);
    StoreDay(history, day, 1, "/other.prj");
  }
  const auto told = [&](const ChangesWanted& wanted) {
    const ChangeList list = ReadChanges(history, "/p.prj", kSites, wanted);
    return list.Counts.Words() + " against " + std::to_string(*list.ComparedWith);
  };
  EXPECT_EQ(told({}), "1 lost against 7");
  EXPECT_EQ(told({3, {}, false}), "1 still missing against 3");
  EXPECT_EQ(told({9, {}, false}), "nothing changed against 9");
  EXPECT_EQ(told({{}, "2020-01-03", false}), "1 still missing against 3");
  EXPECT_EQ(told({{}, "2020-01-03T00:00:01Z", false}), "1 lost against 5");
  EXPECT_EQ(told({{}, "1999-12-31", false}), "1 lost against 1");
  EXPECT_EQ(told({{}, "2999-12-31", false}), "nothing changed against 9");
  EXPECT_THROW(told({4, {}, false}), RuntimeFailure) << "a scan of another project";
}

TEST(HistoryStore, TextsSurviveAndAreUtf8InTheFile) {
  const TemporaryFolder folder;
  const std::string path = "/caf\xc3\xa9\xff.prj";  // bytes of the file system, not of the code page
  HistoryFile history(folder.Folder, SqliteStore::Open::ToWrite);
  StoreDay(history, 0, 1, path);
  const SiteRecord site = ReadChanges(history, path, {}, {{}, {}, true}).Changes.at(0).Site;
  EXPECT_EQ(site.UrlAfter, "a.example/caf\xe9\x80");
  EXPECT_EQ(site.Links.at(0).Page, "a.example/'\x81");
  SqliteStatement raw(history.Store(), "SELECT url_after FROM site");
  ASSERT_TRUE(raw.Next());
  EXPECT_EQ(raw.Bytes(0), "a.example/caf\xc3\xa9\xe2\x82\xac");
}

TEST(HistoryStore, TwoProgramsWaitForEachOther) {
  const TemporaryFolder folder;
  constexpr int kScans = 20;
  const auto program = [&](int first) {
    for (int i = 0; i < kScans; ++i) {
      HistoryFile history(folder.Folder, SqliteStore::Open::ToWrite);
      StoreDay(history, first + i, i % 2);
    }
  };
  std::thread other(program, 100);
  program(200);
  other.join();
  HistoryFile history(folder.Folder, SqliteStore::Open::ToRead);
  EXPECT_EQ(history.Scans("/p.prj").size(), 2U * kScans);
  const std::vector<SiteRecord> newest = NewestRecords(history, "/p.prj");
  ASSERT_EQ(newest.size(), 1U) << "one chain of records";
  EXPECT_EQ(LastResults(history, newest[0], 100).size(), 2U * kScans);
}

TEST(HistoryStore, AScanIsStoredWholeOrNotAtAllOnADiskThatFails) {
  const int calls = AtEveryCall([](FailingDisk& disk) {
    const TemporaryFolder folder;
    const auto store = [&](int day, int found) {
      HistoryFile history(folder.Folder, SqliteStore::Open::ToWrite);
      StoreDay(history, day, found);
    };
    store(1, 1);
    const bool stored = disk.Lets([&] { store(2, 0); });
    HistoryFile history(folder.Folder, SqliteStore::Open::ToWrite);
    const std::size_t scans = history.Scans("/p.prj").size();
    EXPECT_TRUE(!stored || scans == 2);
    EXPECT_EQ(ReadChanges(history, "/p.prj", kSites, {}).Counts.Of(ChangeKind::Lost),
              static_cast<int>(scans) - 1);
    SqliteStatement check(history.Store(), "PRAGMA integrity_check");
    ASSERT_TRUE(check.Next());
    EXPECT_EQ(check.Bytes(0), "ok");
    EXPECT_FALSE(check.Next());
    StoreDay(history, 3, 0);
    EXPECT_EQ(history.Scans("/p.prj").size(), scans + 1) << "the disk is well again";
  });
  EXPECT_GE(calls, 3);
}

}  // namespace
}  // namespace requite::test
