// SPDX-License-Identifier: MIT
// Scans of the real requite-console against hostile servers: the verdict on each, while the time, the memory,
// the requests and the silence of the program's event loop stay bounded.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <map>
#include <memory>

#include "console/child_process.h"
#include "hostile/behaviour.h"
#include "platform/text.h"
#include "qt/services/code_page.h"
#include "support/fakes.h"

namespace requite::hostile {
namespace {

using test::ChildProcess;
using test::LocalServer;
using test::RefusingPort;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

#ifdef __SANITIZE_ADDRESS__
constexpr long kMostMemory = 1200L * 1024;
#else
constexpr long kMostMemory = 400L * 1024;
#endif

// A page of 64 MiB may hold up the events of a program that was built to be debugged for a while.
#ifdef NDEBUG
constexpr milliseconds kLongestSilence{250};
#else
constexpr milliseconds kLongestSilence{5000};
#endif

constexpr int kBeat = 20;
constexpr int kBeats = 3000;
/// Pages, and what the library asks for when it is redirected without end.
constexpr int kMostRequests = 60;

/// One behaviour on a port of its own.
class HostileServer {
 public:
  explicit HostileServer(const Behaviour& row) {
    if (!row.Act) return;
    server_ = std::make_unique<LocalServer>([this, act = row.Act](ServedConnection& peer) {
      ++requests_;
      act(peer);
    });
  }

  [[nodiscard]] std::uint16_t Port() const { return server_ ? server_->Port() : RefusingPort(); }
  [[nodiscard]] int Requests() const { return requests_; }

 private:
  std::atomic<int> requests_ = 0;
  std::unique_ptr<LocalServer> server_;
};

/// The longest time between two pieces of output, while the script prints at each beat of a timer.
class BeatWatch {
 public:
  void Heard() {
    const Clock::time_point now = Clock::now();
    Longest = std::max(Longest, std::chrono::duration_cast<milliseconds>(now - last_));
    last_ = now;
  }
  milliseconds Longest{};

 private:
  Clock::time_point last_ = Clock::now();
};

class HostileScanTest : public testing::TestWithParam<BehaviourGroup> {
 protected:
  HostileScanTest() {
    WriteFile(folder_.File("filetypes.txt"), ".htm\r\n.php\r\n");
    for (const Behaviour& row : rows_) servers_.push_back(std::make_unique<HostileServer>(row));
    std::string project = Joined({kMainSite, "\r\n"});
    for (const Behaviour& row : rows_) {
      project += row.SiteName() + "|" + std::to_string(row.LinksExpected) + "|||\r\n";
    }
    WriteFile(folder_.File("a.prj"), project + "HTML01:x\r\n\r\n");
    std::string script;
    for (int i = 1; i <= kBeats; ++i) script += "after " + std::to_string(i * kBeat) + " echo .\n";
    WriteFile(
        folder_.File("s.txt"),
        script + "echo start\nclick Command1\nwait idle 60\necho end\nmessages\necho rows\nrows List3\n");
  }

  [[nodiscard]] std::vector<std::string> Arguments() const {
    std::vector<std::string> all = {"script",           folder_.File("s.txt"),
                                    "--settings",       folder_.File("settings"),
                                    "--program-folder", folder_.Folder.Path};
    for (const std::string& setting : {std::string("txtTimeout=2"), std::string("cmbAdvance=1"),
                                       std::string("showHelp=0"), "LastProject=" + folder_.File("a.prj")}) {
      all.insert(all.end(), {"--set", setting});
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      all.insert(all.end(), {"--connect-to", ToUtf8(rows_[i].SiteName()) +
                                                 ":80:127.0.0.1:" + std::to_string(servers_[i]->Port())});
    }
    // Nothing leaves this machine.
    all.insert(all.end(), {"--connect-to", "::127.0.0.1:" + std::to_string(RefusingPort())});
    return all;
  }

  test::TemporaryFolder folder_;
  std::vector<Behaviour> rows_ = GetParam().Rows();
  std::vector<std::unique_ptr<HostileServer>> servers_;
};

/// The statuses of each Linking Site's rows.
std::map<std::string, std::string> Verdicts(std::string_view output) {
  std::map<std::string, std::string> verdicts;
  for (const std::string& line : Split(std::string(output), "\n")) {
    const std::vector<std::string> fields = Split(line, "\t");
    if (fields.size() < 3) continue;
    std::string& verdict = verdicts[fields[1]];
    verdict += (verdict.empty() ? "" : ", ") + fields[2];
  }
  return verdicts;
}

TEST_P(HostileScanTest, EveryServerGetsItsVerdictWithinBounds) {
  BeatWatch beats;
  ChildProcess scan(REQUITE_CONSOLE, Arguments());
  scan.OnOut = [&] {
    if (Contains(scan.Out, "start\n", Compare::Binary)) beats.Heard();
  };
  ASSERT_EQ(scan.Wait(), 0) << scan.Err;
  RecordProperty("silence", std::to_string(beats.Longest.count()));
  RecordProperty("memory", std::to_string(scan.PeakMemory));

  EXPECT_TRUE(Contains(scan.Out, "end\nrows\n", Compare::Binary)) << "a message box was shown: " << scan.Out;
  const std::map<std::string, std::string> verdicts = Verdicts(scan.Out);
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const auto verdict = verdicts.find(ToUtf8(rows_[i].SiteName()));
    EXPECT_EQ(verdict == verdicts.end() ? "no row" : verdict->second, rows_[i].Verdict) << rows_[i].Name;
    EXPECT_LE(servers_[i]->Requests(), kMostRequests) << rows_[i].Name;
  }
  EXPECT_LE(beats.Longest, kLongestSilence);
  EXPECT_LE(scan.PeakMemory, kMostMemory);
}

constexpr BehaviourGroup kGroups[] = {
    {"SilentServers", SilentServers},
    {"BrokenConnections", BrokenConnections},
    {"OddHeaders", OddHeaders},
    {"OddBodies", OddBodies},
    {"Floods", Floods},
    {"OddLinks", OddLinks},
    {"MovedPages", MovedPages},
};

INSTANTIATE_TEST_SUITE_P(Servers, HostileScanTest, testing::ValuesIn(kGroups),
                         [](const auto& group) { return std::string(group.param.Name); });

}  // namespace
}  // namespace requite::hostile
