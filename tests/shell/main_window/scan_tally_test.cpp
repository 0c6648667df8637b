// SPDX-License-Identifier: MIT
// The counts of a scan, and the estimate of the time that is left.
#include "shell/main_window/scan_tally.h"

#include <gtest/gtest.h>

#include <cmath>

#include "results/outcome.h"
#include "shell/main_window/form1_rig.h"

namespace requite {
namespace {

using namespace std::chrono_literals;
using Moment = TimeLeft::Moment;

/// The minutes that an estimate tells; -1 for no estimate.
int MinutesOf(const std::string& words) {
  if (words.empty()) return -1;
  if (words == "under 1 min") return 0;
  const int number = std::stoi(words.substr(words.find_first_of("0123456789")));
  return words.ends_with(" h") ? number * 60 : number;
}

TEST(TimeLeft, IsToldOnceEnoughIsKnownAndFollowsAnEvenScan) {
  TimeLeft left;
  const Moment begin;
  left.Begin(begin);
  EXPECT_EQ(left.Words(0, 120, begin + 60s), "") << "one site says nothing about the others";
  EXPECT_EQ(left.Words(3, 120, begin + 3s), "") << "nor do the first seconds";
  for (int second = 30; second < 1195; ++second) {
    const double truth = (1200 - second) / 60.0;
    ASSERT_NEAR(MinutesOf(left.Words(second / 10, 120, begin + second * 1s)), truth, 1.0 + truth / 10);
  }
  EXPECT_EQ(left.Words(120, 120, begin + 1200s), "");
  left.Begin(begin + 1300s);
  EXPECT_EQ(left.Words(3, 12, begin + 1301s), "") << "a new scan knows nothing";
  EXPECT_EQ(left.Words(4, 4000, begin + 1310s), "about 2 h");
}

TEST(TimeLeft, ASilentSiteAndABurstMoveItSlowly) {
  TimeLeft left;
  const Moment begin;
  left.Begin(begin);
  int last = MinutesOf(left.Words(5, 100, begin + 30s));
  int changes = 0;
  // Five sites a minute for half a minute, a minute of silence, then forty sites at once.
  for (int tick = 0; tick < 4 * 300; ++tick) {
    const auto now = begin + 30s + tick * 250ms;
    const double done = tick < 240 ? 5 : 45 + (tick - 240) / 24;
    const int minutes = MinutesOf(left.Words(done, 100, now));
    if (minutes < 0) break;
    ASSERT_LE(std::abs(minutes - last), 1 + last / 8) << tick;
    if (minutes != last) ++changes;
    last = minutes;
  }
  EXPECT_LT(changes, 40);
  EXPECT_EQ(last, 1) << "fifteen sites, at four seconds each";
}

/// Serves a link, a page without one, and silence.
struct ScanOfFour : test::Form1Rig {
  ScanOfFour() {
    Form.Start();
    AddSites("main.example", {"good.example", "bad.example", "silent.example", "last.example"});
    Form.Settings.SaveSetting(setting::txtTimeout, "1");
    Form.Command1.Click();
  }
  void Serve(const char* body) { Services.Connection.Serve(std::string("HTTP/1.1 200 OK\r\n\r\n") + body); }
};

TEST(ScanTally, CountsAsTheOutcomeDoesAndSaysWhoEndedTheScan) {
  ScanOfFour rig;
  ScanOutcome outcome;
  struct Collector : SiteEvents {
    explicit Collector(ScanOutcome& outcome) : Outcome(outcome) {}
    void SiteBegins(const ScannedSite&) override {}
    void SiteFinished(const SiteVerdict& verdict) override {
      ScanOutcome::Site site;
      site.LinksBack = verdict.LinksBack;
      site.Reached = verdict.Reached;
      Outcome.Sites.push_back(site);
    }
    ScanOutcome& Outcome;
  } collector(outcome);
  rig.Form.SiteListeners.push_back(&collector);
  int ends = 0;
  rig.Form.OnScanEnds = [&ends] { ++ends; };
  ScanTally& tally = rig.Form.Tally;
  EXPECT_EQ(tally.Progress(4, 0, Moment()), (std::vector<std::string>{"Site 1 of 4", "0 link back"}));
  rig.Serve("<a href=\"http://main.example/\">main</a>");
  EXPECT_EQ(tally.Progress(4, 0, Moment()), (std::vector<std::string>{"Site 2 of 4", "1 links back"}));
  rig.Serve("nothing");
  rig.Services.timTimeout.Tick();
  rig.Form.cmdStop.Click();
  EXPECT_EQ(ends, 1);
  EXPECT_EQ(tally.Result(4), "Stopped. 3 of 4 sites: 1 link back, 1 do not, 1 not reached");
  EXPECT_EQ(SummaryOf(CountsOf(outcome), 4), SummaryOf(tally.Counts(), 4));
  EXPECT_NE(JsonOfOutcome(outcome).find(R"("sites": 3, "link_back": 1, "missing": 1, "not_reached": 1)"),
            std::string::npos);

  rig.Form.Command1.Click();
  while (rig.Form.State.Scanning) rig.Serve("nothing");
  EXPECT_EQ(tally.Result(4), "4 sites: 0 link back, 4 do not, 0 not reached");
  EXPECT_EQ(tally.Position(4), "Site 4 of 4");
  rig.Form.Files.cmdNew();
  rig.Form.Command1.Click();
  EXPECT_EQ(tally.Counts().Sites, 0) << "a refused start has lost the last results too";
}

}  // namespace
}  // namespace requite
