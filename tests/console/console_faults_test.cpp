// SPDX-License-Identifier: MIT
// The real requite-console on a disk that fails at any one call, is full from it on, or is the last that the
// program sees: the verdicts are the right ones or an error is told, and nothing that was there is lost.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>
#include <set>

#include "console/child_process.h"
#include "console/running_server.h"
#include "platform/text.h"
#include "support/fakes.h"

namespace requite {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;

const std::string kOldProject = "harbour-books.example\r\nrope-and-sail.example|1|||\r\nHTML01:x\r\n\r\n";
const std::string kOldSettings = "requite-settings 1\nfault=kept\ntxtTimeout=30\n";
const std::string kNone = "(none)";

std::string TextOf(const std::string& path) { return FileExists(path) ? ReadFile(path) : kNone; }

std::string EndOf(const std::string& text) {
  return text.substr(std::max<std::size_t>(text.size(), 300) - 300);
}

/// What a run left and said.
struct Outcome {
  bool Reached = false;
  int Status = 0;
  std::string Out;
  std::vector<std::string> Complaints;
  std::string Project, Backup, Settings, Tab, Page, Report;
};

class ConsoleFaultsTest : public testing::Test {
 protected:
  /// A scan in a folder of its own, with every file asked for; `fault` as the preloaded library takes it.
  Outcome Scan(const std::string& fault) {
    const test::TemporaryFolder folder;
    const test::TemporaryFolder marks;
    const std::string project = folder.File("a.prj");
    WriteFile(folder.File("filetypes.txt"), ".htm\r\n");
    WriteFile(folder.File("settings"), kOldSettings);
    WriteFile(project, kOldProject);
    for (const char* file : {"t.tab", "p.html", "r.html"}) WriteFile(folder.File(file), "old");
    const std::string line = "LD_PRELOAD=" REQUITE_FAULT_LIBRARY "|REQUITE_FAULT=" + fault +
                             "|REQUITE_FAULT_BELOW=@|REQUITE_FAULT_MARK=" + marks.File("reached") +
                             "|" REQUITE_CONSOLE
                             "|scan|@/a.prj|-q|--program-folder|@|--settings|@/settings|--set|cmbAdvance=0"
                             "|--connect-to|::127.0.0.1:" +
                             std::to_string(server_.Port()) +
                             "|--save|@/a.prj|--tab|@/t.tab|--page|@/p.html|--report|@/r.html";
    test::ChildProcess scan("/usr/bin/env",
                            Split(Replace(line, "@", folder.Folder.Path, Compare::Binary), "|"));
    Outcome outcome;
    outcome.Status = scan.Wait();
    outcome.Out = scan.Out;
    if (!scan.Err.empty()) outcome.Complaints = Split(scan.Err.substr(0, scan.Err.size() - 1), "\n");
    outcome.Reached = FileExists(marks.File("reached"));
    outcome.Project = TextOf(project);
    outcome.Backup = TextOf(folder.File("Backup/a.prj"));
    outcome.Settings = TextOf(folder.File("settings"));
    outcome.Tab = TextOf(folder.File("t.tab"));
    outcome.Page = TextOf(folder.File("p.html"));
    outcome.Report = TextOf(folder.File("r.html"));
    return outcome;
  }

  test::RunningServer server_;
};

/// `good` is what a disk without faults gives.
void ExpectNothingLost(const Outcome& outcome, const Outcome& good) {
  EXPECT_THAT(outcome.Project, AnyOf(kOldProject, good.Project, kNone));
  EXPECT_TRUE(outcome.Project != kNone || outcome.Backup == kOldProject);
  EXPECT_THAT(outcome.Backup, AnyOf(kOldProject, kNone));
  EXPECT_EQ(outcome.Settings.substr(0, kOldSettings.size()), kOldSettings);
  EXPECT_THAT(outcome.Tab, AnyOf("old", good.Tab));
  EXPECT_THAT(outcome.Page, AnyOf("old", good.Page));
  // The report holds the time of the scan, but not at its end.
  EXPECT_TRUE(outcome.Report == "old" || outcome.Report.ends_with(EndOf(good.Report))) << outcome.Report;
}

void ExpectTheRightAnswer(const Outcome& outcome, const Outcome& good) {
  const std::set<std::string> lines(outcome.Complaints.begin(), outcome.Complaints.end());
  EXPECT_EQ(lines.size(), outcome.Complaints.size()) << "said once";
  for (const std::string& line : lines) EXPECT_TRUE(line.starts_with("requite-console: ")) << line;
  EXPECT_THAT(outcome.Out, AnyOf("", good.Out)) << "no verdict but the right one";
  EXPECT_THAT(outcome.Status, AnyOf(0, 2, 70));
  if (outcome.Status != 0) {
    EXPECT_FALSE(lines.empty());
    return;
  }
  EXPECT_EQ(outcome.Out, good.Out);
  EXPECT_EQ(outcome.Project, good.Project);
  EXPECT_EQ(outcome.Tab, good.Tab);
  EXPECT_EQ(outcome.Page, good.Page);
  EXPECT_NE(outcome.Report, "old");
}

TEST_F(ConsoleFaultsTest, AScanTellsTheTruthOrItsTrouble) {
  const Outcome good = Scan("0o");
  ASSERT_EQ(good.Status, 0);
  ASSERT_NE(good.Out.find("Direct Link"), std::string::npos);
  for (const char* kind : {"o", "f", "k"}) {
    int n = 1;
    for (;; ++n) {
      SCOPED_TRACE(std::to_string(n) + kind);
      const Outcome outcome = Scan(std::to_string(n) + kind);
      ExpectNothingLost(outcome, good);
      if (!outcome.Reached) break;
      if (*kind == 'k') {
        EXPECT_EQ(outcome.Status, 128 + SIGKILL);
      } else {
        ExpectTheRightAnswer(outcome, good);
      }
      if (HasFailure()) break;
    }
    EXPECT_GT(n, 30) << "the library was not loaded";
  }
}

}  // namespace
}  // namespace requite
