// SPDX-License-Identifier: MIT
// A scan of several sites at a time leaves what a scan of one at a time leaves, whatever happens in which
// order.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <utility>

#include "runahead/two_scans.h"

namespace requite::test {
namespace {

/// Without the environment variable the same cases are run on a fast machine and on a slow one, if it is not
/// too slow for so many.
constexpr int kUsualCases = 400;

/// Seconds for random cases; a longer run sets the environment variable.
std::chrono::seconds TimeForCases() {
  const char* const given = std::getenv("REQUITE_AHEAD_SECONDS");
  return std::chrono::seconds(given == nullptr ? 2 : std::atoi(given));
}

AheadOptions RandomOptions(std::uint64_t seed) {
  Dice dice(seed ^ 0x9E3779B97F4A7C15U);
  AheadOptions options;
  options.Sites = dice.Of(std::vector<std::size_t>{2, 3, 8});
  options.Limits.Turn = std::chrono::nanoseconds(dice.OneIn(2) ? 0 : 1'000'000);
  if (dice.OneIn(3)) options.Limits.RecordedBytes = 3000;
  if (dice.OneIn(3)) options.EvictionsOneIn = 20;
  return options;
}

TEST(SeveralSitesAtATime, LeavesWhatOneSiteAtATimeLeaves) {
  const char* const only = std::getenv("REQUITE_AHEAD_SEED");
  const auto end = std::chrono::steady_clock::now() + TimeForCases();
  const int most =
      std::getenv("REQUITE_AHEAD_SECONDS") == nullptr ? kUsualCases : std::numeric_limits<int>::max();
  int cases = 0;
  long plainRequests = 0;
  long aheadRequests = 0;
  for (std::uint64_t seed = only == nullptr ? 1 : std::strtoull(only, nullptr, 10);
       std::chrono::steady_clock::now() < end && cases < most; ++seed, ++cases) {
    const bool wishes = seed % 2 == 0;
    Case given = RandomCase(seed, wishes);
    AheadOptions options = RandomOptions(seed);
    if (seed % 7 == 0) given.Settings["PauseBetweenPages"] = "100";
    ScanOfCase plain(given, seed, nullptr);
    ASSERT_TRUE(plain.Run()) << "seed " << seed;
    ScanOfCase ahead(given, seed, &options);
    ASSERT_TRUE(ahead.Run()) << "seed " << seed;
    ASSERT_EQ(ahead.Remains(), plain.Remains()) << "seed " << seed;
    if (wishes || options.EvictionsOneIn > 0 || options.Limits.RecordedBytes < 10000) continue;
    plainRequests += plain.Requests();
    aheadRequests += ahead.Requests();
  }
  std::cout << cases << " cases, requests " << plainRequests << " and " << aheadRequests << std::endl;
  EXPECT_LT(static_cast<double>(aheadRequests), 1.1 * static_cast<double>(plainRequests));
}

/// Of a number of cases without commands: how many differ, and how many more requests were made.
struct Outcome {
  int Different = 0;
  double Waste = 0;
};

Outcome RunWrong(const AheadOptions& options) {
  Outcome outcome;
  int plainRequests = 0;
  int aheadRequests = 0;
  for (std::uint64_t seed = 1; seed < 80; seed += 2) {
    const Case given = RandomCase(seed, false);
    ScanOfCase plain(given, seed, nullptr);
    EXPECT_TRUE(plain.Run());
    ScanOfCase ahead(given, seed, &options);
    EXPECT_TRUE(ahead.Run());
    if (ahead.Remains() != plain.Remains()) ++outcome.Different;
    plainRequests += plain.Requests();
    aheadRequests += ahead.Requests();
  }
  outcome.Waste = static_cast<double>(aheadRequests) / plainRequests;
  return outcome;
}

/// Takes every page of a site for the same one. Its answers are not used even so, because the lane's request
/// was another one, but the page has to be asked for again.
class WrongKey : public RunAhead {
 public:
  using RunAhead::RunAhead;

 protected:
  Recording* FindPage(const std::string& host) override {
    std::string& path = StateOfScan().Page.PagePath;
    const std::string right = std::exchange(path, "/p1.html");
    Recording* const found = RunAhead::FindPage(host);
    path = right;
    return found;
  }
};

/// Takes every site for another one.
class WrongBinding : public RunAhead {
 public:
  using RunAhead::RunAhead;
  void SiteBegins(const ScannedSite& site) override {
    ScannedSite other = site;
    other.LinkingSite = "f.example/p1.html";
    RunAhead::SiteBegins(other);
  }
};

template <class Wrong>
AheadOptions OptionsWith() {
  AheadOptions options;
  options.Make = [](RunAhead::Needs needs) { return std::make_unique<Wrong>(std::move(needs)); };
  return options;
}

TEST(SeveralSitesAtATime, IsFoundOutWhenItIsWrong) {
  const Outcome right = RunWrong({});
  EXPECT_EQ(right.Different, 0);
  EXPECT_LT(right.Waste, 1.1);
  EXPECT_GT(RunWrong(OptionsWith<WrongKey>()).Waste, 1.5);
  EXPECT_GT(RunWrong(OptionsWith<WrongBinding>()).Waste, 1.5);
  AheadOptions seconds;
  seconds.TicksOfASecond = 2;
  EXPECT_GT(RunWrong(seconds).Different, 0);
}

void ExpectAnswerAfterSixSeconds(const std::string& timeout, int call, const Wish& wish) {
  Case given;
  given.Settings["txtTimeout"] = timeout;
  given.MainSites.emplace_back("main.example", std::vector<SiteRow>{{"slow.example", "1"}});
  given.World.Pages["slow.example/"].Pieces = {{6, "HTTP/1.1 200 OK\r\n\r\n<a href='http://main.example/'>"}};
  given.Wishes[call] = wish;
  const AheadOptions several;
  for (const AheadOptions* options : {static_cast<const AheadOptions*>(nullptr), &several}) {
    ScanOfCase scan(given, 1, options);
    ASSERT_TRUE(scan.Run());
    ASSERT_EQ(scan.Rig.Sites.List3.RowCount(), 1U);
    EXPECT_EQ(scan.Rig.Sites.List3.At(0).Status, "Direct Link");
  }
}

TEST(SeveralSitesAtATime, WaitsForAPageAsLongAsTheScanDoes) {
  constexpr int kBegins = 1;
  constexpr int kFinished = 4;
  ExpectAnswerAfterSixSeconds("8", kBegins, {Wish::Kind::ChangeSetting, 0, 0, "txtTimeout", "2"});
  // Started in the middle of the stop of the first scan, which then stops the timer of the second.
  ExpectAnswerAfterSixSeconds("4", kFinished, {Wish::Kind::Restart, 0, 0, {}, {}});
}

/// Sites of two pages that answer after three seconds; each fifth never ends.
Case SlowSites(int sites) {
  Case made;
  made.Settings["chkAuto2"] = "0";
  made.MainSites.emplace_back("main.example", std::vector<SiteRow>());
  for (int i = 0; i < sites; ++i) {
    const std::string host = "slow" + std::to_string(i) + ".example";
    made.MainSites[0].second.push_back({host, "1"});
    for (const char* path : {"/", "/p1.html"}) {
      ServerAnswer& answer = made.World.Pages[host + path];
      answer.Closes = i % 5 != 4;
      answer.Pieces = {{3, "HTTP/1.1 200 OK\r\n\r\n<a href='/p1.html'>x</a>"},
                       {3, "<a href='http://main.example/'>x</a>"}};
    }
  }
  made.BoxAfter = 2;  // when the first server has answered to the connect
  return made;
}

TEST(SeveralSitesAtATime, ReadsOnWhileAMessageBoxIsOpen) {
  constexpr int kSites = 20;
  const Case given = SlowSites(kSites);
  ScanOfCase plain(given, 1, nullptr);
  ASSERT_TRUE(plain.Run());
  const AheadOptions options;
  ScanOfCase ahead(given, 1, &options);
  ahead.Rig.Services.Dialogs.OnShow = [&] {
    const std::size_t calls = ahead.CallsOfHost();
    while (ahead.World.Move(false)) {
    }
    EXPECT_EQ(ahead.Requests(), 2 * kSites - kSites / 5) << "everything is read meanwhile";
    EXPECT_EQ(ahead.CallsOfHost(), calls) << "the scan waits";
  };
  ASSERT_TRUE(ahead.Run());
  EXPECT_EQ(ahead.Remains(), plain.Remains());
  EXPECT_EQ(ahead.Requests(), plain.Requests());
  EXPECT_EQ(ahead.Rig.Services.Dialogs.Boxes.size(), 1U);
}

TEST(SeveralSitesAtATime, PassesAHundredThousandSitesThatNeedNoPage) {
  Case given;
  given.Settings["chkAudioNext"] = "0";
  given.World.Pages["a.example/"].Pieces = {{0, "HTTP/1.1 200 OK\r\n\r\n<a href='http://main.example/'>"}};
  given.MainSites.emplace_back("main.example", std::vector<SiteRow>(100'000, SiteRow{"b.example", "0"}));
  given.MainSites[0].second.push_back({"a.example", "1"});
  const AheadOptions options;
  ScanOfCase ahead(given, 1, &options);
  ASSERT_TRUE(ahead.Run());
  EXPECT_EQ(ahead.Requests(), 1);
  EXPECT_EQ(ahead.Rig.Sites.List3.RowCount(), 100'001U);
  EXPECT_EQ(ahead.Rig.Sites.List3.At(100'000).Status, "Direct Link");
}

}  // namespace
}  // namespace requite::test
