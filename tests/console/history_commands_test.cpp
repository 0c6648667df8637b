// SPDX-License-Identifier: MIT
// `changes` and `history` after recorded scans: what they print, hostile text among it, and their exit
// status.
#include "console/history_commands.h"

#include <gtest/gtest.h>

#include "console/console_rig.h"
#include "console/scan_command.h"
#include "platform/database_text.h"

namespace requite {
namespace {

/// Two sites. The name of the second one has marks that mean something to a terminal, to JSON and to a table.
class HistoryCommands : public testing::Test {
 protected:
  HistoryCommands() {
    changes_.Project = scan_.Project = rig_.Folder.File("a.prj");
    WriteFile(scan_.Project,
              "main.example\r\na.example|1|||\r\nb.example/\"=\x1b\\\xe9|1|||\r\nHTML01:x\r\n\r\n");
    rig_.Services.Store.Set("chkHistory", "1");
    rig_.Services.Connection.WhenConnecting = [this] {
      rig_.Loop.After(1, [this] {
        const bool links = rig_.Services.Connection.Host == linking_ || linking_.empty();
        rig_.Services.Connection.Serve(links ? "HTTP/1.1 200 OK\r\n\r\n<a href=\"http://main.example\">m</a>"
                                             : "HTTP/1.1 404 Gone\r\n\r\n");
      });
    };
  }

  std::string Scan(const char* utc, const std::string& linking) {
    linking_ = linking;
    rig_.Services.Clock.Utc = utc;
    rig_.Err.str("");
    static_cast<void>(RunScan(rig_.Program, scan_, ScanProgress::Output::Lines, interrupt_));
    return rig_.Err.str();
  }
  template <class Command, class CommandOptions>
  ExitStatus Run(Command command, const CommandOptions& options) {
    rig_.Out.str("");
    rig_.Err.str("");
    return command(options, {rig_.Folder.Folder,
                             {ToDatabaseText, FromDatabaseText},
                             rig_.Out,
                             rig_.Err,
                             false,
                             "2026-01-05T00:00:00Z"});
  }
  ExitStatus Changes(ChangesFormat format) {
    changes_.Format = format;
    return Run(RunChanges, changes_);
  }

  test::ConsoleRig rig_;
  ScanOptions scan_;
  ChangesOptions changes_;
  Interrupt interrupt_;
  std::string linking_;
};

TEST_F(HistoryCommands, TellWhatTheLastScanChanged) {
  EXPECT_EQ(Changes(ChangesFormat::Tsv), ExitStatus::Refused);
  EXPECT_EQ(rig_.Err.str().find("requite-console: no scan of this project is recorded"), 0U);
  EXPECT_FALSE(FileExists(rig_.Folder.File("history.db"))) << "nothing is made by looking";
  EXPECT_EQ(Scan("2026-01-02T00:00:00Z", "").find("lost"), std::string::npos);
  EXPECT_TRUE(Scan("2026-01-03T00:00:00Z", "a.example").ends_with("not reached\n1 lost\n")) << rig_.Err.str();

  EXPECT_EQ(Changes(ChangesFormat::Default), ExitStatus::LinksMissing);
  EXPECT_EQ(rig_.Out.str(),
            "Change\tMain Site\tLinking Site\tBefore\tNow\tSince\n"
            "lost\tmain.example\tb.example\t1 link at b.example/\"=\\x1B\\\\\xc3\xa9\t"
            "no link (404 Not found)\t2026-01-03T00:00:00Z\n");
  EXPECT_EQ(Changes(ChangesFormat::Text), ExitStatus::LinksMissing);
  EXPECT_EQ(
      rig_.Out.str(),
      "Change  Main Site     Linking Site  Before                         Now                      Since\n"
      "lost    main.example  b.example     1 link at b.example/\"=\\x1B\\\\\xc3\xa9  "
      "no link (404 Not found)  2026-01-03T00:00:00Z\n");
  EXPECT_EQ(Changes(ChangesFormat::Json), ExitStatus::LinksMissing);
  EXPECT_EQ(
      rig_.Out.str(),
      "{\"format\": 1, \"project\": \"" + changes_.Project +
          "\", \"scan\": {\"id\": 2, \"finished\": \"2026-01-03T00:00:00Z\", \"complete\": true}, "
          "\"compared_with\": 1,\n \"counts\": {\"lost\": 1, \"fewer\": 0, \"unreachable\": 0, "
          "\"found_again\": 0, "
          "\"new\": 0, \"moved\": 0, \"still_missing\": 0, \"added\": 0, \"removed\": 0},\n \"changes\": [\n"
          "  {\"kind\": \"lost\", \"main\": \"main.example\", \"site\": \"b.example\", "
          "\"url\": \"b.example/\\\"=\\u001B\\\\\xc3\xa9\", \"before\": {\"found\": 1, \"expected\": 1, "
          "\"state\": \"ok\", \"pages\": [\"b.example/\\\"=\\u001B\\\\\xc3\xa9\"]}, "
          "\"now\": {\"found\": 0, \"expected\": 1, \"state\": \"none\", \"reason\": \"404 Not found\"}, "
          "\"since\": \"2026-01-03T00:00:00Z\"}]}\n");

  changes_.Wanted.SinceScan = 7;
  EXPECT_EQ(Changes(ChangesFormat::Tsv), ExitStatus::Refused);
  EXPECT_EQ(rig_.Err.str(), "requite-console: no scan 7 of this project is kept\n");
}

TEST_F(HistoryCommands, ASiteThatIsMarkedAsKnownIsNotTold) {
  Scan("2026-01-02T00:00:00Z", "");
  Scan("2026-01-03T00:00:00Z", "a.example");
  const auto mark = [&](std::vector<std::string> site, const std::string& takeBack) {
    ChangesOptions options = changes_;
    options.Acknowledge = std::move(site);
    options.TakeBack = takeBack;
    return Run(RunChanges, options);
  };
  EXPECT_EQ(mark({"c.example", "x"}, ""), ExitStatus::Refused);
  EXPECT_EQ(mark({"a.example", "x"}, ""), ExitStatus::Refused);
  EXPECT_EQ(rig_.Err.str(),
            "requite-console: \"a.example\" links back as expected: there is nothing to acknowledge\n");
  EXPECT_EQ(mark({"B.example", "new owner \xe2\x80\xae \xc3\xa9"}, ""), ExitStatus::Done);
  EXPECT_EQ(Changes(ChangesFormat::Tsv), ExitStatus::Done);
  EXPECT_EQ(rig_.Out.str(), "Change\tMain Site\tLinking Site\tBefore\tNow\tSince\n");
  changes_.Wanted.All = true;
  EXPECT_EQ(Changes(ChangesFormat::Tsv), ExitStatus::Done);
  EXPECT_NE(rig_.Out.str().find("no link (404 Not found), known: new owner ? \xc3\xa9\t"), std::string::npos)
      << rig_.Out.str();
  EXPECT_EQ(mark({}, "b.example"), ExitStatus::Done);
  EXPECT_EQ(Changes(ChangesFormat::Tsv), ExitStatus::LinksMissing);

  EXPECT_EQ(Run(RunHistory, HistoryOptions{changes_.Project, true}), ExitStatus::Done);
  EXPECT_EQ(rig_.Out.str(),
            "ID\tStarted\tFinished\tType\tComplete\tSites\tPages\tLinks\tErrors\n"
            "1\t2026-01-02T00:00:00Z\t2026-01-02T00:00:00Z\tall Main Sites\tyes\t2\t2\t2\t0\n"
            "2\t2026-01-03T00:00:00Z\t2026-01-03T00:00:00Z\tall Main Sites\tyes\t2\t3\t1\t1\n");
}

TEST(VisibleUtf8, ShowsMarksThatWouldReorderALine) {
  EXPECT_EQ(VisibleUtf8("/x\xe2\x80\xae.prj\xff"), "/x\\xE2\\x80\\xAE.prj\xff");
}

}  // namespace
}  // namespace requite
