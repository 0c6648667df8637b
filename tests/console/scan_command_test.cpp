// SPDX-License-Identifier: MIT
// What `scan` does with the results: the page that is written and the requests that go to the user's script.
#include "console/scan_command.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "console/console_rig.h"

namespace requite {
namespace {

/// A scan of two sites, of which each answers with the same page.
class ScanCommand : public testing::Test {
 protected:
  ScanCommand() {
    options_.Project = rig_.Folder.File("a.prj");
    WriteFile(options_.Project,
              "main.example\r\na.example|1|http://a.example/in|A|\r\nb.example|1|||\r\n"
              "HTML01:<top>\r\nHTML02:x\r\nHTML03:<end>\r\nPOSTSINGLE:http://s.example/$LinkingSite/"
              "$Status\r\n\r\n");
    rig_.Services.Connection.WhenConnecting = [this] {
      rig_.Loop.After(1, [this] {
        rig_.Services.Connection.Serve("HTTP/1.1 200 OK\r\n\r\n<a href=\"http://main.example\">m</a>");
      });
    };
  }

  ExitStatus Run() { return RunScan(rig_.Program, options_, ScanProgress::Output::Lines, interrupt_); }

  [[nodiscard]] std::vector<std::string> Asked() { return rig_.Services.Internet.Asked; }

  test::ConsoleRig rig_;
  ScanOptions options_;
  Interrupt interrupt_;
};

TEST_F(ScanCommand, ThePageIsWrittenAsTheButtonsWouldAndTheResultsArePosted) {
  options_.Page = rig_.Folder.File("page.html");
  options_.Save = rig_.Folder.File("saved.prj");
  options_.Post = true;
  rig_.Services.Internet.Bodies = {{"http://s.example/a.example/True", "ok"},
                                   {"http://s.example/b.example/True", "ok"}};
  EXPECT_EQ(Run(), ExitStatus::Done) << rig_.Err.str();
  const std::string page = ReadFile(options_.Page);
  EXPECT_EQ(page,
            "<top>\r\n\r\n<a href=\"http://a.example/in\" target=\"_blank\">A</a><br><br>\r\n"
            "<a href=\"http://b.example\" target=\"_blank\">b.example</a><br><br>\r\n\r\n\r\n<end>\r\n");
  EXPECT_EQ(Asked(),
            (std::vector<std::string>{"http://s.example/a.example/True", "http://s.example/b.example/True"}));
  EXPECT_NE(rig_.Err.str().find("Posted 2 of 2\n2 sites: 2 link back, 0 do not, 0 not reached\n"),
            std::string::npos)
      << rig_.Err.str();
  EXPECT_NE(ReadFile(options_.Save).find("HTML02:x\r\n"), std::string::npos) << "saved without the links";

  const std::string byButton = rig_.Folder.File("by button");
  rig_.Dialogs.LayReadyFile(byButton);
  rig_.Form.Command6.Click();
  EXPECT_EQ(ReadFile(byButton), page);
}

TEST_F(ScanCommand, ARowWithoutAnAnswerIsNamedAndHasAStatusOfItsOwn) {
  options_.Post = true;
  rig_.Services.Internet.Bodies["http://s.example/b.example/True"] = "ok";
  EXPECT_EQ(Run(), ExitStatus::PostFailed);
  EXPECT_NE(rig_.Err.str().find("requite-console: no answer for a.example: http://s.example/a.example/True\n"
                                "Posted 1 of 2, 1 got no answer\n"),
            std::string::npos)
      << rig_.Err.str();
}

TEST_F(ScanCommand, ASiteThatNeverAnswersIsNotReached) {
  rig_.Services.Connection.WhenConnecting = [this] {
    rig_.Loop.After(1, [this] {
      for (int second = 0; second < 60; ++second) rig_.Services.timTimeout.Tick();
    });
  };
  EXPECT_EQ(Run(), ExitStatus::LinksMissing);
  EXPECT_NE(rig_.Err.str().find("\n2 sites: 0 link back, 0 do not, 2 not reached\n"), std::string::npos)
      << rig_.Err.str();
}

TEST_F(ScanCommand, SitesThatNeedSecureConnectionsAreCountedUnlessTheScanIsQuiet) {
  rig_.Services.Connection.WhenConnecting = [this] {
    rig_.Loop.After(1, [this] {
      rig_.Services.Connection.Serve("HTTP/1.1 302 Found\r\nLocation: https://a.example/\r\n\r\n");
    });
  };
  EXPECT_EQ(Run(), ExitStatus::LinksMissing);
  EXPECT_TRUE(
      rig_.Err.str().ends_with("\n2 sites: 0 link back, 2 do not, 0 not reached\n2 sites answer over "
                               "HTTPS only; this scan could not read them. With --secure it can.\n"))
      << rig_.Err.str();
  rig_.Err.str("");
  EXPECT_EQ(RunScan(rig_.Program, options_, ScanProgress::Output::None, interrupt_),
            ExitStatus::LinksMissing);
  EXPECT_EQ(rig_.Err.str(), "");
}

TEST_F(ScanCommand, SkipAndStopArePressedWhenTheirTimeHasCome) {
  rig_.Services.Connection.WhenConnecting = nullptr;  // nobody answers
  options_.SkipAfter = 5;
  EXPECT_EQ(Run(), ExitStatus::LinksMissing);
  EXPECT_NE(rig_.Out.str().find("a.example\tNone Found (Skipped)"), std::string::npos) << rig_.Out.str();
  EXPECT_NE(rig_.Out.str().find("b.example\tNone Found (Skipped)"), std::string::npos) << rig_.Out.str();

  rig_.Out.str("");
  options_.StopAfter = 7;
  EXPECT_EQ(Run(), ExitStatus::LinksMissing);
  EXPECT_EQ(rig_.Out.str().find("b.example"), std::string::npos) << rig_.Out.str();
  EXPECT_NE(rig_.Err.str().find("stopped after 7 seconds\n1 of 2 sites: "), std::string::npos)
      << rig_.Err.str();
}

TEST_F(ScanCommand, AFormatTellsOfSitesThatWereSkippedAndOfAScanThatEndedEarly) {
  rig_.Services.Connection.WhenConnecting = nullptr;  // nobody answers
  options_.SkipAfter = 5;
  options_.StopAfter = 7;
  options_.Format = ResultFormat::Json;
  options_.Output = kStandardStream;
  EXPECT_EQ(Run(), ExitStatus::LinksMissing);
  EXPECT_EQ(rig_.Out.str(),
            "{\"format\": 1,\n \"project\": \"" + options_.Project +
                "\",\n \"finished\": \"2026-01-02T14:04:05Z\",\n \"complete\": false,\n"
                " \"summary\": {\"sites\": 1, \"link_back\": 0, \"missing\": 0, \"not_reached\": 1},\n"
                " \"sites\": [\n  {\"main\": \"main.example\", \"site\": \"a.example\", \"expected\": 1, "
                "\"found\": 0, \"links_back\": false, \"reason\": \"Skipped\", \"links\": []}\n ],\n"
                " \"errors\": []\n}\n");

  options_.Format = ResultFormat::JUnit;
  options_.Output = rig_.Folder.File("results.xml");
  rig_.Out.str("");
  EXPECT_EQ(Run(), ExitStatus::LinksMissing);
  EXPECT_EQ(rig_.Out.str(), "");
  const std::string xml = ReadFile(options_.Output);
  EXPECT_NE(xml.find("tests=\"2\" failures=\"0\" errors=\"1\" skipped=\"1\""), std::string::npos) << xml;
  EXPECT_NE(xml.find("<skipped message=\"0 of 1 links: Skipped\"/>"), std::string::npos) << xml;
  EXPECT_NE(xml.find("<error message=\"the scan ended before its last site\""), std::string::npos) << xml;
}

TEST_F(ScanCommand, RowsThatCannotBeWrittenAreOneLine) {
  options_.Output = rig_.Folder.File("no such folder/rows.csv");
  options_.Format = ResultFormat::Csv;
  EXPECT_EQ(Run(), ExitStatus::Refused);
  EXPECT_NE(rig_.Err.str().find("requite-console: \"" + options_.Output + "\": Path not found\n"),
            std::string::npos)
      << rig_.Err.str();
}

TEST_F(ScanCommand, AScanWithNothingInProgressEnds) {
  rig_.Services.Connection.WhenConnecting = [this] {
    rig_.Loop.After(1, [this] { rig_.Services.timTimeout.Stop(); });
  };
  options_.Tab = rig_.Folder.File("t.tab");
  EXPECT_EQ(Run(), ExitStatus::Refused);
  EXPECT_NE(rig_.Err.str().find("came to a halt at a.example"), std::string::npos) << rig_.Err.str();
  EXPECT_TRUE(FileExists(options_.Tab));
}

TEST_F(ScanCommand, TheReportIsThatOfThisScanOrTheStatusTells) {
  // The program's own report file cannot be written.
  std::filesystem::create_directory(rig_.Folder.File("tempreport.html"));
  options_.Report = rig_.Folder.File("r.html");
  EXPECT_EQ(Run(), ExitStatus::Refused);
  EXPECT_NE(ReadFile(options_.Report).find("a.example"), std::string::npos);
  EXPECT_NE(rig_.Out.str().find("a.example\tDirect Link"), std::string::npos) << rig_.Out.str();
}

TEST_F(ScanCommand, RowsAndFilesOfAScanThatIsDoneAtOnceAreGivenAlthoughItsReportFails) {
  WriteFile(options_.Project, "main.example\r\na.example|0|||\r\n");
  options_.Tab = rig_.Folder.File("rows.tab");
  std::filesystem::remove_all(rig_.Folder.File("Project Files"));
  Run();
  EXPECT_NE(rig_.Err.str().find("Path not found"), std::string::npos) << rig_.Err.str();
  EXPECT_NE(rig_.Out.str().find("None Found"), std::string::npos);
  EXPECT_NE(ReadFile(options_.Tab).find("None Found"), std::string::npos);

  WriteFile(options_.Project, "main.example\r\n");
  EXPECT_EQ(Run(), ExitStatus::Refused) << "nothing to scan";
}

TEST_F(ScanCommand, PostingIsAskedForAndAnInterruptEndsIt) {
  EXPECT_EQ(Run(), ExitStatus::Done);
  EXPECT_TRUE(Asked().empty());
  options_.Post = true;
  rig_.Services.Internet.OnOpen = [this] {
    interrupt_.Seen = true;
    interrupt_.OnInterrupt();
  };
  EXPECT_EQ(Run(), ExitStatus::Interrupted);
  EXPECT_EQ(Asked().size(), 1U);
  EXPECT_EQ(rig_.Services.Internet.EndedWaits, 1);
}

}  // namespace
}  // namespace requite
