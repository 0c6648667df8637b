// SPDX-License-Identifier: MIT
// The sites counted above the results are those that the scan itself counts.
#include "shell/main_window/result_outcomes.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "results/report_figures.h"
#include "shell/main_window/form1_rig.h"

namespace requite {

namespace {

std::string Words(const SiteCounts& counts) { return SummaryOf(counts, 0); }

using test::Form1Rig;

/// What the scan says of its sites, summed up as the console does it.
struct Told : SiteEvents {
  explicit Told(Form1& form) { form.SiteListeners.push_back(this); }
  void SiteBegins(const ScannedSite&) override {}
  void SiteFinished(const SiteVerdict& verdict) override { Counts.Add(verdict.LinksBack, verdict.Reached); }
  SiteCounts Counts;
};

constexpr const char* kLink = "<a href='http://main.example/'>x</a>\r\n";

/// Sites of every end, two of them on one host.
void ScanAll(Form1Rig& rig) {
  rig.AddSites("main.example", {"links.example", "fewer.example", "none.example", "silent.example",
                                "skipped.example", "links.example/more", "late.example", "text.example"});
  rig.Form.Sites.List1(1).Set(1, &LinkingSite::LinksExpected, "2");
  rig.Form.Command1.Click();
  const auto serve = [&](const std::string& page) {
    rig.Services.Connection.Serve("HTTP/1.1 200 OK\r\n\r\n<html>\r\n" + page + "</html>");
  };
  const auto waitInVain = [&] {
    const std::string site = rig.Form.State.CurrentLinkingUrl;
    for (int tick = 0; tick < 1000 && rig.Form.State.CurrentLinkingUrl == site; ++tick)
      rig.Services.timTimeout.Tick();
  };
  serve(kLink);
  serve(kLink);
  serve("nothing");
  waitInVain();
  rig.Form.cmdSkip.Click();
  serve("nothing");
  serve("<a href='/more/'>more</a>\r\n");
  waitInVain();  // a page of it was read
  serve("see main.example\r\n");
  ASSERT_FALSE(rig.Form.State.Scanning);
}

TEST(ResultOutcomes, AreThoseThatTheScanCounts) {
  Form1Rig rig;
  rig.Form.Start();
  Told told(rig.Form);
  ResultOutcomes outcomes(rig.Form);
  RecordList<LinkResult>& rows = rig.Form.Sites.List3;
  rows.SetObserver(&outcomes);
  ScanAll(rig);
  EXPECT_EQ(Words(told.Counts), Words({8, 2, 4, 2}));
  EXPECT_EQ(Words(outcomes.Counts()), Words(told.Counts));

  std::ostringstream each;
  for (std::size_t row = 0; row < rows.RowCount(); ++row)
    each << rows.At(row).Linking << ' ' << static_cast<int>(outcomes.Of(row)) << '\n';
  EXPECT_EQ(each.str(),
            "links.example 0\nfewer.example 1\nfewer.example 1\nnone.example 1\nsilent.example 2\n"
            "skipped.example 2\nlinks.example 1\nlate.example 1\ntext.example 0\n");
  EXPECT_EQ(CountFigures(rig.Form.Sites, rig.Form.Lists.lstErr).TotalNonLinking, 5);

  rows.SetSort({true, 1, 1});
  EXPECT_EQ(Words(outcomes.Counts()), Words(told.Counts));
  const std::uint64_t before = outcomes.Version();
  rows.SelectOnly(0);  // text.example, which links back by its Status whatever it is marked as
  rig.Form.Popup2.Click(static_cast<int>(PopupRow::MarkAsNoneFound));
  EXPECT_EQ(Words(outcomes.Counts()), Words(told.Counts));
  EXPECT_GT(outcomes.Version(), before);
  rows.SetObserver(nullptr);
}

TEST(ResultOutcomes, OfALoadedProjectComeFromItsRows) {
  Form1Rig rig;
  RecordList<LinkResult>& rows = rig.Form.Sites.List3;
  ResultOutcomes outcomes(rig.Form);
  rows.SetObserver(&outcomes);
  rows.Add({"m", "a", "Direct Link", "001", "a/1"});
  EXPECT_EQ(Words(outcomes.Counts()), Words({1, 1, 0, 0}));
  const std::uint64_t before = outcomes.Version();
  rows.Add({"m", "a", "Missing 001", "000", "a/1"});
  EXPECT_GT(outcomes.Version(), before);  // the link's row, too, is now of a site that falls short
  rows.Add({"n", "a", "Domain Link", "001", "a/2"});
  rows.Add({"m", "b", "none found (TIMEOUT)", "000", "b"});
  rows.Add({"m", "c", "None Found (404)", "000", "c"});
  EXPECT_EQ(Words(outcomes.Counts()), Words({4, 1, 2, 1}));
  EXPECT_EQ(outcomes.Of(0), SiteOutcome::Missing);
  EXPECT_EQ(outcomes.Of(2), SiteOutcome::LinksBack);
  rows.Clear();
  EXPECT_EQ(outcomes.Counts().Sites, 0);
  rows.SetObserver(nullptr);
}

}  // namespace
}  // namespace requite
