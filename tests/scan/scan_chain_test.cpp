// SPDX-License-Identifier: MIT
// Whole scans over a scripted server: every step for real, in every chunking, with commands at every yield.
#include <gtest/gtest.h>

#include <set>

#include "scan/scan.h"
#include "scan/slices.h"
#include "support/scan_rig.h"

namespace requite::test {
namespace {

/// A scan with all its steps, and a server that answers from a table of pages.
struct WholeScan : ScanRig {
  WholeScan() : Road(Sites, Lists, State, Controls.Window(), Host, Services.All, Folder.Folder, Work) {
    WriteFile(Folder.File("filetypes.txt"), ".htm\r\n");
    Pages["a.example/"] = Page("<a href=\"next.html\">x</a>\r\n<a href='http://a.example/dir/'>");
    Pages["a.example/next.html"] = Page("<a href=\"http://main.example/\">Main</a>");
    Pages["a.example/dir/"] = Page("nothing here");
    Pages["b.example/"] = Page("see main.example");
    Pages["c.example/"] = "HTTP/1.1 404 Not Found\r\n\r\n<a href='gone.html'>\r\n";
    Pages["c.example/gone.html"] =
        Page("<title>Document Moved</title>\r\n<a href=\"http://d.example/\">here</a>");
    Services.Internet.Bodies["http://d.example/"] = "<a href=\"http://www.main.example/x\">";
    AddMainSite("main.example", {"a.example", "http://b.example/"});
    AddMainSite("http://www.main.example", {"c.example", "mute.example"});
    Sites.List4.SelectOnly(0);
  }
  static std::string Page(const std::string& body) { return "HTTP/1.1 200 OK\r\n\r\n" + body; }

  /// Answers until nothing is asked any more; a page without an answer runs into the time-out. Returns
  /// false when the scan neither ends nor stops moving.
  bool Run(std::size_t chunk = std::string::npos) {
    for (int turns = 0; turns < 300; ++turns) {
      const PageFetch& page = State.Page;
      const auto found = Pages.find(page.PageHost + page.PagePath);
      if (Services.Connection.Open && found != Pages.end()) {
        Services.Connection.Serve(found->second, chunk);
      } else if (Services.timTimeout.Running && State.Scanning) {
        Services.timTimeout.Tick();
      } else {
        return true;
      }
    }
    return false;
  }
  [[nodiscard]] std::string Results() const {
    std::string rows;
    for (std::size_t i = 0; i < Sites.List3.RowCount(); ++i) {
      const LinkResult& row = Sites.List3.At(i);
      rows += row.Linking + " " + row.Status + " " + row.No + " " + row.LinkUrl + "\n";
    }
    return rows;
  }

  std::map<std::string, std::string> Pages;
  requite::Scan Road;
};

constexpr const char* kResults =
    "a.example Direct Link 001 a.example/next.html\n"
    "b.example Redirect Link 001 b.example\n"
    "c.example Direct Link 001 c.example/gone.html\n"
    "mute.example None Found (Timeout) 000 mute.example\n";

TEST(WholeScan, GivesTheSameResultsInEveryChunking) {
  for (const std::size_t chunk : {1, 2, 3, 5, 7, 16, 19, 20, 64, 100000}) {
    WholeScan scan;
    scan.Services.Store.Set("txtTimeout", "3");
    scan.Road.StartScan();
    ASSERT_TRUE(scan.Run(chunk));
    EXPECT_EQ(scan.Results(), kResults) << chunk;
    EXPECT_FALSE(scan.State.Scanning);
    EXPECT_EQ(scan.Host.Raised, (std::array<int, 5>{6, 3, 3, 2, 4}));
    EXPECT_EQ(scan.Sites.List1(1).At(0).WebsiteUrl, "a.example/next.html");
    ASSERT_EQ(scan.Lists.lstErr.RowCount(), 2U);
    EXPECT_EQ(scan.Lists.lstErr.At(0).Error + " " + scan.Lists.lstErr.At(0).Url, "404 Not found c.example/");
    EXPECT_EQ(scan.Host.Calls.back(), "GenerateLinkReport");
  }
}

enum class Command { Stop, Skip, Restart, TimeOut };

class CommandAtEveryYield : public ::testing::TestWithParam<Command> {};

void Give(WholeScan& scan, Command command) {
  switch (command) {
    case Command::Stop: scan.Road.cmdStop(); break;
    case Command::Skip: scan.Road.cmdSkip(); break;
    case Command::Restart: scan.Road.StartScan(); break;
    case Command::TimeOut:
      for (int i = 0; i < 3; ++i) scan.Services.timTimeout.Tick();
      break;
  }
}

TEST_P(CommandAtEveryYield, LeavesTheScanIdleOrStandingStill) {
  WholeScan plain;
  plain.Services.Store.Set("txtTimeout", "3");
  plain.Road.StartScan();
  ASSERT_TRUE(plain.Run());
  const int yields = plain.Services.EventLoop.Yields;
  ASSERT_GT(yields, 50);
  for (int n = 1; n <= yields; ++n) {
    WholeScan scan;
    scan.Services.Store.Set("txtTimeout", "3");
    bool given = false;
    scan.Services.EventLoop.AtYield(n, [&] {
      given = true;
      Give(scan, GetParam());
    });
    scan.Road.StartScan();
    ASSERT_TRUE(scan.Run()) << n;
    ASSERT_TRUE(given) << n;
    if (GetParam() == Command::Stop) {
      ASSERT_FALSE(scan.State.Scanning) << n;
      ASSERT_EQ(scan.State.SiteRow, 0) << n;
      ASSERT_TRUE(scan.Controls.Command1.Enabled()) << n;
    }
    if (scan.State.Scanning) scan.Road.cmdStop();
    ASSERT_TRUE(scan.Services.Dialogs.Boxes.empty()) << n << " " << scan.Services.Dialogs.Boxes[0].Text;
    // The same program scans as well as ever afterwards.
    for (std::size_t row : {0U, 1U}) {
      scan.Sites.List1(1).SetFieldAt(row, 0, row == 0 ? "a.example" : "b.example");
      scan.Sites.List1(2).SetFieldAt(row, 0, row == 0 ? "c.example" : "mute.example");
    }
    scan.State.ReasonNote.clear();
    scan.State.SkipRequested = scan.State.RedirectSuspected = false;
    scan.State.LinkNumber = 0;
    scan.Road.StartScan();
    ASSERT_TRUE(scan.Run()) << n;
    ASSERT_EQ(scan.Results(), kResults) << n;
  }
}

INSTANTIATE_TEST_SUITE_P(Scan, CommandAtEveryYield,
                         ::testing::Values(Command::Stop, Command::Skip, Command::Restart, Command::TimeOut));

/// A scan of one Main Site whose pages have as much filling as a test wants.
struct LargePageScan : WholeScan {
  explicit LargePageScan(std::size_t filling) {
    const std::string large(filling, 'x');
    Pages["a.example/"] = Page(large + "<a href=\"next.html\">" + large + "see main.example");
    Pages["b.example/"] = Page("302 Found" + large + "<a href=\"http://d.example/\">");
    Sites.List4.SelectOnly(0);
    Controls.mnuScan.CheckOnly(1);
    Services.Store.Set("txtTimeout", "3");
  }
  /// Runs the scan with one command at yield `n`. False when it has fewer yields.
  bool RunWith(void (requite::Scan::*command)(), int n) {
    bool given = false;
    Services.EventLoop.AtYield(n, [&] {
      given = true;
      (Road.*command)();
      YieldsAfter = Services.EventLoop.Yields;
    });
    Road.StartScan();
    EXPECT_TRUE(Run()) << n;
    YieldsAfter = Services.EventLoop.Yields - YieldsAfter;
    return given;
  }
  int YieldsAfter = 0;
};

constexpr std::size_t kSeveralSlices = 5 << 19;
/// Yields of one walk over the first page, which has its filling twice.
const int kWalk = static_cast<int>(2 * kSeveralSlices / Slices().Bytes);

TEST(LargePage, AStopBreaksItOffBetweenTwoSlices) {
  int n = 1;
  for (; n < 1000; ++n) {
    LargePageScan scan(kSeveralSlices);
    if (!scan.RunWith(&requite::Scan::cmdStop, n)) break;
    ASSERT_FALSE(scan.State.Scanning);
    ASSERT_LE(scan.YieldsAfter, kWalk) << "stopped at yield " << n;
  }
  EXPECT_GT(n, 5 * kWalk) << "the page let events run between its slices";
}

TEST(LargePage, ASkipBetweenTwoSlicesEndsAsOneAtAYieldOfASmallPage) {
  std::set<std::string> ends;
  for (int n = 1; n < 1000; ++n) {
    LargePageScan scan(10);
    if (!scan.RunWith(&requite::Scan::cmdSkip, n)) break;
    ends.insert(scan.Results());
  }
  EXPECT_GT(ends.size(), 2U);
  for (int n = 1; n < 1000; ++n) {
    LargePageScan scan(kSeveralSlices);
    if (!scan.RunWith(&requite::Scan::cmdSkip, n)) break;
    ASSERT_TRUE(ends.contains(scan.Results())) << n << "\n" << scan.Results();
  }
}

TEST(WholeScan, HasTheProgramFolderUntilItsReportIsWritten) {
  WholeScan scan;
  scan.Services.Store.Set("txtTimeout", "3");
  scan.Host.OnReport = [&] {
    WorkFolder other(scan.Folder.Folder);
    other.Claim();
    EXPECT_NE(other.File("tempreport.html"), scan.Folder.File("tempreport.html"));
  };
  scan.Road.StartScan();
  ASSERT_TRUE(scan.Run());
  WorkFolder next(scan.Folder.Folder);
  next.Claim();
  EXPECT_EQ(next.File("tempreport.html"), scan.Folder.File("tempreport.html"));
  std::filesystem::remove(scan.Folder.File("html0.txt"));
  scan.Road.StartScan();
  ASSERT_TRUE(scan.Run());
  EXPECT_FALSE(FileExists(scan.Folder.File("html0.txt"))) << "another scan is at work there";
  EXPECT_TRUE(FileExists(scan.Work.File("html0.txt")));
}

TEST(WholeScan, StopDuringTheGetOfAMovedPageAbortsIt) {
  WholeScan scan;
  scan.Sites.List4.SelectOnly(1);
  scan.Controls.mnuScan.CheckOnly(1);
  scan.Services.Internet.OnOpen = [&] {
    scan.Road.cmdStop();
    EXPECT_EQ(scan.Services.Internet.Aborts, 2) << "one by the stop, one by the site before";
  };
  scan.Services.Internet.Aborts = 1;
  scan.Services.Internet.Bodies.clear();
  Gets import(scan.Services.Internet);
  import.Start("http://import.example", "Mozilla", [](const auto&){});
  scan.Road.StartScan();
  ASSERT_TRUE(scan.Run());
  EXPECT_EQ(scan.Services.Internet.Asked.size(), 2U);
  EXPECT_EQ(scan.Services.Internet.EndedWaits, 1);
  EXPECT_EQ(scan.Services.Internet.Started.size(), 1U) << "another owner's GET continues";
  EXPECT_FALSE(scan.State.Scanning);
  EXPECT_TRUE(scan.Sites.List3.Empty());
}

}  // namespace
}  // namespace requite::test
