// SPDX-License-Identifier: MIT
// Start, page steps, stop and time-out of the scan controller.
#include <gtest/gtest.h>

#include "model/page_limits.h"
#include "scan/control_rig.h"

namespace requite::test {
namespace {

TEST(PageLimit, IsTheNumberThatItsCaptionShowsAndStaysAsItWasOutsideTheRows) {
  std::int16_t row = 0;
  for (const PageLimitChoice& each : kPageLimits) {
    std::string digits(each.Caption);
    std::erase(digits, ',');
    EXPECT_EQ(digits, std::to_string(PageLimitAt(row++, 7)));
  }
  for (const auto outside : {std::int16_t{-1}, row}) EXPECT_EQ(PageLimitAt(outside, 7), 7);
}

struct RefusedStart {
  const char* What;
  int ScanType;
  std::vector<std::pair<std::string, std::vector<std::string>>> Sites;
  int SelectedMainSite;
  const char* Message;
  std::string Focus;
};

void ExpectRefused(const RefusedStart& row) {
  SCOPED_TRACE(row.What);
  ControlRig rig;
  for (const auto& [text, linking] : row.Sites) rig.AddMainSite(text, linking);
  rig.Sites.List4.SelectOnly(row.SelectedMainSite);
  rig.Controls.mnuScan.CheckOnly(row.ScanType);
  rig.Sites.List3.Add({"a", "b", "Direct Link", "001", "c"});
  rig.Lists.lstErr.Add({"Timeout", "b"});
  rig.Now().LinksCounted = 3;
  const ViewProbe domain(rig.Controls.txtDomain);
  const ViewProbe site(rig.Controls.Text1);

  rig.Control.StartScan();

  EXPECT_EQ(rig.LastBox(), row.Message);
  EXPECT_FALSE(rig.Now().Scanning);
  EXPECT_TRUE(rig.Sites.List3.Empty());
  EXPECT_TRUE(rig.Lists.lstErr.Empty());
  EXPECT_EQ(rig.Now().LinksCounted, 0);
  EXPECT_FALSE(rig.Sites.ProjectSaved);
  EXPECT_TRUE(rig.Controls.cmdNew.Enabled());
  EXPECT_EQ(domain.Focuses == 1, row.Focus == "txtDomain");
  EXPECT_EQ(site.Focuses == 1, row.Focus == "Text1");
  EXPECT_TRUE(rig.Fetched.empty());
}

TEST(StartScan, ThatIsRefusedSaysWhyAndHasLostTheLastResults) {
  constexpr const char* kEnterDomain = "Please enter the Domain you want to find links to.";
  constexpr const char* kEnterLinking = "You must enter a Linking Site to scan before using this scan type.";
  constexpr const char* kSelectLinking =
      "You must select a Linking Site to scan before using this scan type.";
  constexpr const char* kEnterWebsite = "Please enter at least one website to search for links.";
  for (const RefusedStart& row : {
           RefusedStart{"no Main Site", 0, {}, -1, kEnterDomain, "txtDomain"},
           {"a Main Site of one blank", 0, {{" ", {"x"}}}, -1, kEnterDomain, "txtDomain"},
           {"a Main Site of a scheme", 0, {{"HTTP://", {"x"}}}, -1, kEnterDomain, "txtDomain"},
           {"a first Main Site without sites", 0, {{"m", {}}, {"n", {"x"}}}, 1, kEnterWebsite, "Text1"},
           {"one Main Site, none selected", 1, {{"m", {"x"}}}, -1, kEnterLinking, ""},
           {"one Main Site, without sites", 1, {{"m", {"x"}}, {"n", {}}}, 1, kEnterLinking, ""},
           {"one Linking Site, none selected", 2, {{"m", {"x"}}}, 0, kSelectLinking, ""},
           {"one Linking Site, no Main Site selected", 2, {{"m", {"x"}}}, -1, kSelectLinking, ""},
       }) {
    ExpectRefused(row);
  }
}

TEST(StartScan, WithoutFileTypesKeepsEverythingAndSaysSo) {
  ControlRig rig;
  rig.AddMainSite("m", {"x"});
  rig.Sites.List3.Add({"a", "b", "Direct Link", "001", "c"});
  rig.Now().AutoSaveTicks = 9;
  DeleteFile(rig.Folder.File("filetypes.txt"));
  rig.Control.StartScan();
  EXPECT_EQ(rig.LastBox(), "File not found 53");
  EXPECT_FALSE(rig.Sites.List3.Empty());
  EXPECT_EQ(rig.Now().AutoSaveTicks, 0);
  EXPECT_FALSE(rig.Now().Scanning);
}

TEST(StartScan, RefusesACountOfLinksThatIsNoNumberWithTheCommandsAlreadySwitched) {
  for (const auto& [count, words] : std::map<std::string, std::string>{
           {"many", "Type mismatch 13"}, {"", "Type mismatch 13"}, {"40000", "Overflow 6"}}) {
    SCOPED_TRACE("expects \"" + count + "\" links");
    ControlRig rig;
    rig.AddMainSite("m", {}).Add({"x", count, "", "", ""});
    rig.Control.StartScan();
    EXPECT_EQ(rig.LastBox(), words);
    EXPECT_FALSE(rig.Now().Scanning);
    EXPECT_TRUE(rig.Lists.List2.Empty());
    EXPECT_TRUE(rig.Controls.cmdStop.Enabled());
    EXPECT_FALSE(rig.Controls.Frame1.Enabled());
  }
}

TEST(StartScan, OfTheSelectedLinkingSiteScansTheFirstRow) {
  ControlRig rig;
  rig.AddMainSite("http://www.m.example/x", {"one.example", "two.example", "three.example"});
  rig.AddMainSite("other", {"far.example"});
  rig.Sites.List4.SelectOnly(0);
  rig.Sites.List1(1).SelectOnly(2);
  rig.Controls.mnuScan.CheckOnly(2);
  rig.Control.StartScan();
  EXPECT_EQ(rig.Fetched, std::vector<std::string>{"one.example"});
  EXPECT_EQ(rig.Now().MainSiteKey, "m.example/x");
  EXPECT_EQ(rig.Now().SiteRow, 1);
  EXPECT_EQ(rig.Now().FileTypes, (std::vector<std::string>{".htm", ".php"}));
  EXPECT_EQ(rig.Services.Sounds.Played, std::vector<std::string>{"nextsearch.wav"});
  EXPECT_EQ(rig.Host.Calls,
            (std::vector<std::string>{"ResetSiteCounters", "ResetPageCounters", "SelectMainSite 0"}));
  EXPECT_EQ(rig.Controls.StatusBar1.Panel(1), "Main Site 1 of 2");
  EXPECT_EQ(rig.Controls.StatusBar1.Panel(2), "Page 1 of 1");
  EXPECT_EQ(rig.Controls.StatusBar1.Panel(3), "Searching one.example");
}

TEST(StartScan, OfARowThatTheUserChoseScansThatAloneEvenWhenItIsSkipped) {
  ControlRig rig;
  rig.AddMainSite("m.example", {"one.example", "two.example", "three.example"});
  rig.Sites.List4.SelectOnly(0);
  rig.Sites.List1(1).SelectOnly(1);
  rig.Controls.mnuSkip.CheckOnly(1);
  rig.Control.StartScan(2);
  EXPECT_EQ(rig.Now().SiteRow, 2);
  rig.Control.cmdSkip();
  EXPECT_EQ(rig.Fetched, std::vector<std::string>{"two.example"});
  EXPECT_FALSE(rig.Now().Scanning);
  EXPECT_FALSE(rig.Now().SkipRequested);
  rig.Controls.mnuScan.CheckOnly(0);
  rig.Control.StartScan();
  EXPECT_EQ(rig.Fetched.back(), "one.example");
}

TEST(ScanNextPage, TakesPagesInOrderUpToTheLimitOfTheSettingAtThatMoment) {
  ControlRig rig;
  rig.Set(setting::cmbAdvance, "1");
  rig.AddMainSite("m", {"x", "y"});
  rig.Control.StartScan();
  for (int i = 1; i < 30; ++i) rig.Lists.List2.Add({"x/" + std::to_string(i)});
  for (int i = 1; i < 10; ++i) rig.Control.ScanNextPage();
  EXPECT_EQ(rig.Fetched.size(), 10U);
  EXPECT_EQ(rig.Fetched.back(), "x/9");
  EXPECT_TRUE(rig.Sites.List3.Empty());
  rig.Control.ScanNextPage();
  EXPECT_EQ(rig.Fetched.back(), "y") << "the eleventh step closes the site";
  EXPECT_EQ(rig.Now().PagesDone, 1);
  rig.Set(setting::chkAuto, "0");
  for (int i = 0; i < 30; ++i) rig.Lists.List2.Add({"y/" + std::to_string(i)});
  for (int i = 0; i < 30; ++i) rig.Control.ScanNextPage();
  EXPECT_EQ(rig.Fetched.back(), "y/29") << "without the limit only the queue ends a site";
  rig.Control.ScanNextPage();
  EXPECT_FALSE(rig.Now().Scanning);
}

TEST(ScanNextPage, GoesOnWithTheRestOfTheStepAfterASiteWithAllItsLinks) {
  ControlRig rig;
  rig.AddMainSite("m", {"x", "y"});
  rig.Control.StartScan();
  rig.Lists.List2.Add({"x/late"});
  rig.Now().LinkFound = true;
  rig.Now().LinksCounted = 1;
  // The page step of y is in its fetch when a link of it joins the queue: the outer step takes it too.
  rig.OnFetch = [&] {
    if (rig.Fetched.back() == "y") rig.Lists.List2.Add({"y/1"});
  };
  rig.Control.ScanNextPage();
  EXPECT_EQ(rig.Fetched, (std::vector<std::string>{"x", "y", "y/1"}));

  ControlRig limited;  // no such rest when the queue or the limit ended the site
  limited.AddMainSite("m", {"x", "y"});
  limited.Control.StartScan();
  limited.OnFetch = [&] { limited.Lists.List2.Add({"y/1"}); };
  limited.Control.ScanNextPage();
  EXPECT_EQ(limited.Fetched, (std::vector<std::string>{"x", "y"}));
}

TEST(ScanNextPage, ASiteThatExpectsNoLinksIsScannedOnlyWhenTheirCountDoesNotEndASite) {
  for (const char* chkAuto2 : {"1", "0"}) {
    ControlRig rig;
    rig.Set(setting::chkAuto2, chkAuto2);
    rig.AddMainSite("m", {}).Add({"www.x.example/p", "0", "", "", ""});
    rig.Control.StartScan();
    EXPECT_EQ(rig.Fetched.size(), chkAuto2[0] == '1' ? 0U : 1U);
    if (chkAuto2[0] == '0') continue;
    EXPECT_EQ(rig.Result(0), "m|x.example|None Found|000|x.example");
    EXPECT_EQ(rig.Controls.StatusBar1.Panel(1), "Stopped");
  }
}

TEST(cmdStop, DoesWhatWasPutOffBeforeItsReport) {
  ControlRig rig;
  rig.AddMainSite("m", {"x"});
  rig.Control.StartScan();
  LateWork& late = rig.Services.EventLoop.Late();
  bool done = false;
  late.Add(&done, [&] { done = true; });
  rig.Host.OnReport = [&] { EXPECT_TRUE(done); };
  const LateWork::Slice slice(late);
  rig.Control.cmdStop();
  EXPECT_TRUE(done);
}

TEST(cmdStop, ClosesBeforeItYieldsAndReportsBeforeItPlays) {
  ControlRig rig;
  rig.AddMainSite("m", {"x"});
  rig.Control.StartScan();
  rig.Services.timTimeout.Start(1000);
  rig.Services.Sounds.Played.clear();
  rig.Controls.pb1.SetValue(40);
  rig.Services.EventLoop.OnEveryYield = [&] {
    EXPECT_EQ(rig.Services.Connection.Closes, 1);
    EXPECT_EQ(rig.Services.Internet.Aborts, 1);
    EXPECT_EQ(rig.Controls.pb1.Value(), 0);
    EXPECT_EQ(rig.Controls.StatusBar1.Panel(1), "Stopped");
    EXPECT_EQ(rig.Controls.StatusBar1.Panel(3), "");
    EXPECT_TRUE(rig.Services.timTimeout.Running);
  };
  rig.Host.OnReport = [&] {
    EXPECT_FALSE(rig.Services.timTimeout.Running);
    EXPECT_EQ(rig.Host.Raised[3], 1);
    EXPECT_TRUE(rig.Services.Sounds.Played.empty());
    EXPECT_FALSE(rig.Controls.Command10.Enabled());
  };
  rig.Control.cmdStop();
  EXPECT_EQ(rig.Host.Calls.back(), "GenerateLinkReport");
  EXPECT_EQ(rig.Services.Sounds.Played, std::vector<std::string>{"finished.wav"});
  EXPECT_TRUE(rig.Sites.List3.Empty()) << "a stop writes no row for the site in progress";
  EXPECT_EQ(rig.Now().SiteRow, 0);
}

TEST(TimeoutTick, CountsSilenceAndEndsTheWholeSite) {
  ControlRig rig;
  rig.Set(setting::txtTimeout, "2");
  rig.AddMainSite("m", {"x.example/a", "y.example"});
  rig.Control.StartScan();
  rig.Lists.List2.Add({"x.example/more"});
  rig.Now().Page.PageHost = "x.example";
  rig.Control.TimeoutTick();
  EXPECT_EQ(rig.Controls.StatusBar1.Panel(4), "1 of 2 seconds");
  EXPECT_TRUE(rig.Lists.lstErr.Empty());
  rig.Control.TimeoutTick();
  EXPECT_EQ(rig.Lists.lstErr.At(0).Error, "Timeout");
  EXPECT_EQ(rig.Lists.lstErr.At(0).Url, "x.example");
  EXPECT_EQ(rig.Result(0), "m|x.example|None Found (Timeout)|000|x.example");
  EXPECT_EQ(rig.Fetched.back(), "y.example");
  rig.Control.cmdStop();
  rig.Control.TimeoutTick();
  EXPECT_FALSE(rig.Now().Scanning) << "a late tick does not start the scan again";
}

}  // namespace
}  // namespace requite::test
