// SPDX-License-Identifier: MIT
// The command line: what is taken, and that every mistake is one line and nothing written.
#include "console/options.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "console/setting_words.h"
#include "platform/run_settings.h"
#include "platform/text.h"
#include "support/fakes.h"

namespace requite {
namespace {

class CommandLine : public testing::Test {
 protected:
  CommandLine() { WriteFile(project_, "main.example\r\n"); }

  std::variant<Options, EndAtOnce> Read(const std::vector<std::string>& words) {
    std::vector<const char*> arguments{"requite-console"};
    for (const std::string& word : words) arguments.push_back(word.c_str());
    return ReadCommandLine(static_cast<int>(arguments.size()), arguments.data());
  }

  test::TemporaryFolder folder_;
  std::string project_ = folder_.File("a.prj");
};

TEST_F(CommandLine, AScanWithEverythingAskedFor) {
  const std::string line = "scan --set txtTimeout=2 --connect-to A.example:80:127.0.0.1:8080 " + project_ +
                           " --connect-to ::127.0.0.1:9 --set LastProject= --report " +
                           folder_.File("r.html") + " --page " + folder_.File("p.html") +
                           " --post --program-folder " + folder_.Folder.Path + " --save - -q --private";
  const auto read = Read(Split(line, " "));
  ASSERT_TRUE(std::holds_alternative<Options>(read)) << std::get<EndAtOnce>(read).Text;
  const Options& options = std::get<Options>(read);
  const auto& scan = std::get<ScanOptions>(options.Command);
  EXPECT_EQ(scan.Project, project_);
  EXPECT_EQ(scan.Report, folder_.File("r.html"));
  EXPECT_EQ(scan.Page, folder_.File("p.html"));
  EXPECT_TRUE(scan.Post);
  EXPECT_EQ(scan.Save, "-");
  EXPECT_EQ(scan.Tab, "");
  EXPECT_TRUE(options.Common.Quiet && options.Common.Private);
  EXPECT_EQ(options.Common.Settings,
            (std::vector<std::pair<std::string, std::string>>{{"txtTimeout", "2"}, {"LastProject", ""}}));
  ASSERT_EQ(options.Common.ConnectTo.size(), 2U);
  EXPECT_EQ(options.Common.ConnectTo[0].Target.Port, 8080);
  EXPECT_EQ(options.Common.ConnectTo[1].Host, "");
}

TEST_F(CommandLine, WhatStandsForASettingHoldsForThisRun) {
  for (const char* command : {"scan", "script"}) {
    const auto read = Read({command, project_, "--secure", "--sites-at-a-time", "16", "--user-agent", "",
                            "--set", "chkSecure=0"});
    ASSERT_TRUE(std::holds_alternative<Options>(read)) << std::get<EndAtOnce>(read).Text;
    const CommonOptions& common = std::get<Options>(read).Common;
    using Pairs = std::vector<std::pair<std::string, std::string>>;
    EXPECT_EQ(common.Settings, (Pairs{{"chkSecure", "0"}}));
    EXPECT_EQ(common.RunSettings, (Pairs{{"chkSecure", "1"}, {"SitesAtATime", "16"}, {"txtUserAgent", ""}}));
  }
}

TEST_F(CommandLine, PlainWordsAreTheSameAsSetAndTheLastOneWins) {
  for (const std::string command : {"scan", "settings"}) {
    const std::string project = command == "scan" ? project_ + " " : "";
    const auto read = Read(Split(command + " " + project +
                                     "--set txtTimeout=9 --timeout 5 --set txtTimeout=7 --max-pages 100 "
                                     "--no-redirects --pause 250 --redirects",
                                 " "));
    ASSERT_TRUE(std::holds_alternative<Options>(read)) << std::get<EndAtOnce>(read).Text;
    EXPECT_EQ(std::get<Options>(read).Common.Settings, (SettingPairs{{"txtTimeout", "9"},
                                                                     {"txtTimeout", "5"},
                                                                     {"txtTimeout", "7"},
                                                                     {"chkAuto", "1"},
                                                                     {"cmbAdvance", "3"},
                                                                     {"chkRedirect", "0"},
                                                                     {"PauseBetweenPages", "250"},
                                                                     {"chkRedirect", "1"}}));
    EXPECT_TRUE(std::get<Options>(read).Common.RunSettings.empty());
  }
}

TEST_F(CommandLine, TheHistoryIsWrittenByThisScanAndReadSinceADateOrAScan) {
  const auto scan = Read({"scan", project_, "--history"});
  ASSERT_TRUE(std::holds_alternative<Options>(scan));
  EXPECT_EQ(std::get<Options>(scan).Common.RunSettings.at(0).first, "chkHistory");
  const auto changes = [&](const std::string& since) {
    const auto read =
        Read({"changes", project_, "--since", since, "--acknowledge", "a.example", "two words"});
    return std::get<ChangesOptions>(std::get<Options>(read).Command);
  };
  EXPECT_EQ(changes("2026").Wanted.SinceScan, 2026);
  EXPECT_EQ(changes("2026-01-31T12:00").Wanted.SinceDate, "2026-01-31T12:00");
  EXPECT_EQ(changes("1").Acknowledge, (std::vector<std::string>{"a.example", "two words"}));
}

TEST(RunSettings, HoldOverTheStoreUntilTheyAreWritten) {
  test::MemorySettings store;
  store.Write("chkSecure", "0");
  RunSettings settings(store);
  settings.Hold("chkSecure", "1");
  EXPECT_EQ(settings.Read("chkSecure"), "1");
  EXPECT_EQ(store.Read("chkSecure"), "0");
  settings.Write("chkSecure", "2");
  EXPECT_EQ(settings.Read("chkSecure"), "2");
  EXPECT_EQ(store.Read("chkSecure"), "2");
}

TEST_F(CommandLine, PathsAreTakenFromTheRootOn) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.Folder.Path);
  const auto read = Read({"scan", "./a.prj", "--save", "b.prj"});
  std::filesystem::current_path(before);
  ASSERT_TRUE(std::holds_alternative<Options>(read));
  const auto& scan = std::get<ScanOptions>(std::get<Options>(read).Command);
  EXPECT_EQ(std::filesystem::path(scan.Project).filename(), "a.prj");
  EXPECT_TRUE(std::filesystem::path(scan.Project).is_absolute());
  EXPECT_TRUE(std::filesystem::path(scan.Save).is_absolute());
}

TEST_F(CommandLine, MistakesAreOneLineAndRefused) {
  const std::string dir = folder_.Folder.Path;
  const std::vector<std::string> mistakes[] = {
      {"scan"},
      {"scan", project_, "--page", dir},
      {"scan", project_, "--post", "http://script.example"},
      {"scan", project_, "--set", "novalue"},
      {"scan", project_, "--set", "=1"},
      {"scan", project_, "--user-agent", "two\nlines"},
      {"script", "--user-agent"},
      {"scan", project_, "--sites-at-a-time", "0"},
      {"scan", project_, "--sites-at-a-time", "257"},
      {"scan", project_, "--timeout", "0"},
      {"scan", project_, "--timeout", "32768"},
      {"scan", project_, "--timeout", "5s"},
      {"scan", project_, "--max-pages", "99"},
      {"settings", "--format", "csv"},
      {"settings", "--secure"},
      {"scan", project_, "--output", dir},
      {"scan", project_, "--connect-to", "a:80:127.0.0.1:99999"},
      {"scan", dir + "/gone.prj"},
      {"scan", project_, "--save", dir},
      {"scan", project_, "--tab", dir + "/no such folder/t.tab"},
      {"scan", project_, "--program-folder", dir + "/gone"},
      {"scan", project_, "--program-folder", project_},
      {"script", "--settings", dir},
      {"script", "--settings", project_ + "/below a file"},
      {"script", "--save", "x.prj"},
      {"open", dir + "/gone.prj"},
      {"open", project_, "--settings", dir + "/settings"},
      {"changes", dir + "/gone.prj"},
      {"changes", project_, "--since", "yesterday"},
      {"changes", project_, "--since", "2026-1-1"},
      {"changes", project_, "--format", "xml"},
      {"changes", project_, "--acknowledge", "a.example"},
      {"history"},
  };
  for (const auto& words : mistakes) {
    const auto read = Read(words);
    const std::string shown = testing::PrintToString(words);
    ASSERT_TRUE(std::holds_alternative<EndAtOnce>(read)) << shown;
    EXPECT_EQ(std::get<EndAtOnce>(read).Status, ExitStatus::Refused) << shown;
    EXPECT_EQ(std::get<EndAtOnce>(read).Text.find('\n'), std::string::npos) << shown;
    EXPECT_NE(std::get<EndAtOnce>(read).Text, "") << shown;
  }
  int files = 0;
  for (const auto& each : std::filesystem::recursive_directory_iterator(dir)) files += each.is_regular_file();
  EXPECT_EQ(files, 1);
}

TEST_F(CommandLine, AWordThatMeansNothingIsNamedWithTheNearestRightOne) {
  const std::pair<std::vector<std::string>, const char*> mistakes[] = {
      {{"--bogus"}, "unknown option --bogus"},
      {{"scna", project_}, "unknown command scna, did you mean scan?"},
      {{"frobnicate"}, "unknown command frobnicate"},
      {{"scan", "--bogus"}, "unknown option --bogus"},
      {{"scan", project_, "--reprot=r.html"}, "unknown option --reprot, did you mean --report?"},
      {{"--private", "scan", project_}, "option --private belongs after its command, such as scan"},
      {{"scan", project_, "other.prj"}, "unexpected argument other.prj"},
      {{"scan", project_, "--tab", "-", "--page", "-"}, "--tab and --page cannot both be standard output"},
      {{}, "a command is missing: scan, script, import, open, settings, changes or history (see --help)"},
      {{"scan", project_, "--format", "jsno"},
       "--format: \"jsno\" is not one of tsv, csv, json and junit, did you mean json?"},
      {{"scan", project_, "--tab", "-", "--format", "json"},
       "--tab and --output cannot both be standard output"},
  };
  for (const auto& [words, complaint] : mistakes) {
    const auto read = Read(words);
    ASSERT_TRUE(std::holds_alternative<EndAtOnce>(read)) << complaint;
    EXPECT_EQ(std::get<EndAtOnce>(read).Text, std::string("requite-console: ") + complaint);
  }
}

TEST_F(CommandLine, HelpAndVersionEndWell) {
  using Words = std::vector<std::string>;
  for (const Words& words :
       {Words{"--help"}, Words{"--version"}, Words{"scan", "--help"}, Words{"-h"}, Words{"open", "-V"}}) {
    const auto read = Read(words);
    ASSERT_TRUE(std::holds_alternative<EndAtOnce>(read)) << testing::PrintToString(words);
    EXPECT_EQ(std::get<EndAtOnce>(read).Status, ExitStatus::Done);
    EXPECT_NE(std::get<EndAtOnce>(read).Text.find("requite-console"), std::string::npos);
  }
}

}  // namespace
}  // namespace requite
