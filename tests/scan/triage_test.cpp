// SPDX-License-Identifier: MIT
// What a response tells as a whole, and the two work files.
#include "scan/triage.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <optional>

#include "scan/work_files.h"
#include "support/analysis_rig.h"
#include "support/generated_page.h"

namespace requite::test {
namespace {

/// Triage alone: the analyser is only remembered.
struct TriageTest : testing::Test {
  TriageTest() {
    rig.AddMainSite("main.example", {"site.example"});
    rig.State.Scanning = true;
    rig.State.MainSiteKey = "main.example";
    rig.State.PageFull = "site.example/page";
  }
  [[nodiscard]] std::string WorkFile(const char* name) const { return ReadFile(rig.Folder.File(name)); }

  RecordedSteps steps;
  ScanRig rig;
  Triage triage{rig.Context, steps};
};

TEST_F(TriageTest, ErrorCodesHaveTheirTexts) {
  const std::pair<std::string, std::string> rows[] = {
      {"HTTP/1.1 404 Not Found", "404 Not found"},
      {"HTTP/1.1 408 X", "408 request timeout"},
      {"HTTP/1.1 504 X", "504 Gateway timeout"},
      {"HTTP/1.1 505 X", "505 HTTP Not Version"},
      {"x 503 y", "503 Service Unavailable"},
      {"HTTP/1.1 200 OK", ""},
      {"HTTP/1.1 418 Teapot", ""},
      {"HTTP/1.1 404\r\nServer: x", ""},  // the code then ends at the next blank
      {"", ""},
  };
  for (const auto& [line, text] : rows) {
    SCOPED_TRACE(line);
    rig.State.ReasonNote = "";
    rig.Lists.lstErr.Clear();
    triage.CheckHttpStatus(line + "\r\n\r\n", "site.example/x");
    EXPECT_EQ(rig.State.ReasonNote, text);
    ASSERT_EQ(rig.Lists.lstErr.RowCount(), text.empty() ? 0U : 1U);
    if (text.empty()) continue;
    EXPECT_EQ(rig.Lists.lstErr.At(0).Error, text);
    EXPECT_EQ(rig.Lists.lstErr.At(0).Url, "site.example/x");
  }
  EXPECT_EQ(rig.Host.Raised[0], 5) << "a page with an error status counts once more";
}

TEST_F(TriageTest, ReplacesAWorkFileThatMayNotBeWritten) {
  const std::string path = rig.Folder.File("html0.txt");
  WriteFile(path, "old");
  ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
  triage.ProcessPage({"new"});
  EXPECT_EQ(ReadFile(path), "new\r\n");
  EXPECT_TRUE(rig.Host.Calls.empty());
}

TEST_F(TriageTest, WorkFilesThatCannotBeWrittenAreToldOnceAndDecideNothing) {
  std::filesystem::create_directory(rig.Folder.File("html0.txt"));
  for (const char* page : {"new", "newer"}) {
    triage.ProcessPage({page});
    EXPECT_EQ(*rig.State.Page.PreparedText, std::string(page) + "\r\n");
    EXPECT_EQ(WorkFile("html20.txt"), std::string(page) + "\r\n");
  }
  EXPECT_EQ(rig.Host.Calls, std::vector<std::string>{"TellWorkFilesUnwritten"});
  EXPECT_EQ(steps.Calls, (std::vector<std::string>{"AnalysePage", "AnalysePage"}));
}

TEST_F(TriageTest, AFullDiskDoesNotMixTwoPagesInOneFile) {
  WriteFile(rig.Folder.File("html0.txt"), "the text of an older page");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit full{4, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &full), 0);
  triage.ProcessPage({"new text"});
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, oldHandler);
  EXPECT_EQ(WorkFile("html0.txt"), "new ");
  EXPECT_EQ(*rig.State.Page.PreparedText, "new text\r\n");
  EXPECT_EQ(rig.Host.Calls, std::vector<std::string>{"TellWorkFilesUnwritten"});
}

/// What an event finds in the two files during each yield of some pages.
std::string FilesAtEachYield(bool inSlice) {
  RecordedSteps steps;
  ScanRig rig;
  rig.State.Scanning = true;
  rig.State.MainSiteKey = "main.example";
  Triage triage(rig.Context, steps);
  std::string seen;
  rig.Services.EventLoop.OnEveryYield = [&] {
    for (const char* name : {"html0.txt", "html20.txt"}) {
      const std::string path = rig.Folder.File(name);
      const std::string text = FileExists(path) ? ReadFile(path) : "(none)";
      seen += std::to_string(text.size()) + ": " + text.substr(0, 40) + '\n';
    }
  };
  std::optional<LateWork::Slice> slice;
  if (inSlice) slice.emplace(rig.Services.EventLoop.Late());
  const std::string large(std::size_t{3} << 20, 'x');
  for (const std::string& page : {std::string("first\r\npage"), std::string("a href=\nsecond"), large,
                                  std::string(), std::string("href=last")}) {
    triage.ProcessPage(page);
    seen += "--\n";
  }
  slice.reset();
  rig.Services.EventLoop.LetPendingEventsRun();
  return seen;
}

TEST(WorkFiles, EveryEventFindsThemAsIfNoneHadWaited) {
  EXPECT_EQ(FilesAtEachYield(true), FilesAtEachYield(false));
}

TEST_F(TriageTest, OfPagesInOneSliceTheFirstAndTheLastAreWritten) {
  LateWork& late = rig.Services.EventLoop.Late();
  const LateWork::Slice slice(late);
  for (const char* page : {"first", "se\ncond", "th\nird"}) {
    triage.ProcessPage({page});
    EXPECT_EQ(WorkFile("html0.txt"), "first\r\n") << page;
    EXPECT_EQ(WorkFile("html20.txt"), "first\r\n") << page;
  }
  late.Finish();
  EXPECT_EQ(WorkFile("html0.txt"), "th\nird\r\n");
  EXPECT_EQ(WorkFile("html20.txt"), "third\r\n");
  EXPECT_EQ(*rig.State.Page.PreparedText, "th\nird\r\n");

  triage.ProcessPage({"fourth"});
  const std::string large(std::size_t{3} << 20, 'x');  // does not wait, and must not be replaced by what does
  triage.ProcessPage(large);
  const int yields = rig.Services.EventLoop.Yields;
  late.Finish();
  EXPECT_EQ(rig.Services.EventLoop.Yields, yields);
  EXPECT_EQ(WorkFile("html0.txt"), large + "\r\n");
}

TEST_F(TriageTest, LateWorkFilesThatCannotBeWrittenAreToldOnceAndDecideNothing) {
  LateWork& late = rig.Services.EventLoop.Late();
  const LateWork::Slice slice(late);
  triage.ProcessPage({"first"});
  std::filesystem::remove(rig.Folder.File("html0.txt"));
  std::filesystem::create_directory(rig.Folder.File("html0.txt"));
  for (const char* page : {"second", "third"}) {
    triage.ProcessPage({page});
    EXPECT_EQ(*rig.State.Page.PreparedText, std::string(page) + "\r\n");
    late.Finish();
    EXPECT_EQ(WorkFile("html20.txt"), std::string(page) + "\r\n");
    EXPECT_EQ(rig.Host.Calls, std::vector<std::string>{"TellWorkFilesUnwritten"});
  }
  EXPECT_EQ(steps.Calls, (std::vector<std::string>{"AnalysePage", "AnalysePage", "AnalysePage"}));
}

TEST(PageMarks, AgreeWithNineReplacementsAndSearchesInSlicesOfAnySize) {
  constexpr std::array<std::string_view, 12> kPieces = {"href=",
                                                        "HrEf=",
                                                        "hrefhref=",
                                                        "h",
                                                        "x\r\n",
                                                        "<?",
                                                        "PHP",
                                                        "You are seeing ",
                                                        "this text because",
                                                        "302 found",
                                                        "301 Moved permanently",
                                                        "MOVED</title>"};
  constexpr std::array<std::string_view, 5> kMainSites = {
      "", "x", "=h", "main.example", "a.long.main.example/whose/text/is/longer/than/what/is/compared"};
  const TemporaryFolder folder;
  PageGenerator generate(7);
  std::map<std::size_t, int> seen;
  for (int i = 0; i < 5000; ++i) {
    const std::string mainSite = generate.Pick(kMainSites);
    std::string body;
    for (int piece = generate.Below(6); piece > 0; --piece) {
      body += generate.Pick(kPieces);
      if (generate.Below(3) == 0) body += generate.Blanks(45);
      if (generate.Below(8) == 0) body += mainSite.substr(0, mainSite.size() - (i % 3 == 0 ? 1 : 0));
    }
    std::string plain = body;
    for (std::size_t blanks = 8; blanks >= 1; --blanks) {
      plain = Replace(plain, "href=" + std::string(blanks, ' '), "href=", Compare::Text);
    }
    const auto slice = static_cast<std::size_t>(1 + generate.Below(60));
    const Slices slices{[] { return true; }, slice};
    const PreparedPage page = PageMarks(mainSite).Prepare(body, slices).value();
    ASSERT_EQ(page.Text, Replace(plain, "href=", "\r\nhref=", Compare::Text)) << body;
    const auto holds = [&](std::string_view what) { return Contains(body, what, Compare::Text); };
    ASSERT_EQ(page.Protected, holds("You are seeing this text because")) << body;
    ASSERT_EQ(page.UnrunScript, holds("<?php")) << body;
    ASSERT_EQ(page.MayHaveMoved,
              holds("302 Found") || holds("301 Moved Permanently") || holds("moved</title>"))
        << body;
    const std::size_t from = Find(body, mainSite.substr(0, MarkFinder::kCompared), Compare::Text);
    ASSERT_EQ(page.MainSiteFrom.value_or(std::string::npos), mainSite.empty() ? std::string::npos : from)
        << body;
    for (const std::size_t sign : {std::size_t{page.Protected}, std::size_t{2} + page.UnrunScript,
                                   std::size_t{4} + page.MainSiteFrom.has_value()}) {
      ++seen[sign];
    }
    if (i % 10 != 0) continue;
    ASSERT_TRUE(WritePageFile(folder.File("page"), body, slices));
    ASSERT_EQ(ReadFile(folder.File("page")), body);
    ASSERT_TRUE(WriteFlatPageFile(folder.File("flat"), body + "\n\r\r", slices));
    ASSERT_EQ(ReadFile(folder.File("flat")), Without(body, {"\r\n", "\r", "\n"}) + "\r\n");
  }
  for (std::size_t sign = 0; sign < 6; ++sign) EXPECT_GT(seen[sign], 20) << sign;
}

TEST_F(TriageTest, TheMainSiteIsThatOfTheMomentWhenThePageHasBeenRead) {
  const std::string page(std::size_t{3} << 20, '.');
  struct Row {
    std::string Before, After, Text;
    bool Suspected;
  };
  const std::string longKey(40, 'a');
  for (const Row& row : {Row{"main.example", "other.example", "MAIN.example", false},
                         Row{"main.example", "other.example", "other.EXAMPLE", true},
                         Row{"main.example", longKey, longKey, true}, Row{longKey, longKey, longKey, true},
                         Row{longKey, longKey, longKey.substr(1), false}, Row{"", "", "", true}}) {
    rig.State.MainSiteKey = row.Before;
    rig.State.RedirectSuspected = false;
    rig.Services.EventLoop.AtYield(rig.Services.EventLoop.Yields + 2,
                                   [&] { rig.State.MainSiteKey = row.After; });
    triage.ProcessPage(row.Text + page);
    EXPECT_EQ(rig.State.RedirectSuspected, row.Suspected)
        << row.Before << " " << row.After << " " << row.Text;
  }
}

}  // namespace
}  // namespace requite::test
