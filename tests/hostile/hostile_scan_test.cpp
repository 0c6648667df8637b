// SPDX-License-Identifier: MIT
// Scans of the real requite-console against hostile servers: the verdict on each, while the time, the memory,
// the requests and the silence of the program's event loop stay bounded.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <optional>

#include "console/child_process.h"
#include "hostile/hostile_web.h"
#include "platform/text.h"
#include "qt/services/code_page.h"

namespace requite::hostile {
namespace {

using test::ChildProcess;
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

constexpr int kTimeoutSeconds = 2;
constexpr int kBeat = 20;
constexpr int kBeats = 3000;
/// Pages, and what the library asks for when it is redirected without end.
constexpr int kMostRequests = 60;

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
  static std::string Script() {
    std::string beats;
    for (int i = 1; i <= kBeats; ++i) beats += "after " + std::to_string(i * kBeat) + " echo .\n";
    return beats +
           "echo start\nclick Command1\nwait idle 60\necho end\nmessages\necho rows\nrows List3\nrows "
           "lstErr\n";
  }

  /// The requests of both ports are bounded, and none is in the open that need not be.
  void CheckConnections(std::size_t row, const std::string& output) const {
    const HostileServer& server = web_.Server(row);
    EXPECT_LE(server.Plain.Connections(), kMostRequests);
    const std::optional<SecurePort>& expected = web_.Rows()[row].Secure;
    if (!expected) return;
    EXPECT_EQ(server.Plain.Connections(), expected->PlainConnections);
    EXPECT_EQ(server.Secure->Connections(), expected->Connections);
    EXPECT_TRUE(Contains(output, expected->Error + "\n", Compare::Binary));
  }

  HostileWeb web_{GetParam().Rows()};
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
  ChildProcess scan(REQUITE_CONSOLE, web_.Arguments(Script(), kTimeoutSeconds));
  scan.OnOut = [&] {
    if (Contains(scan.Out, "start\n", Compare::Binary)) beats.Heard();
  };
  ASSERT_EQ(scan.Wait(), 0) << scan.Err;
  RecordProperty("silence", std::to_string(beats.Longest.count()));
  RecordProperty("memory", std::to_string(scan.PeakMemory));

  EXPECT_TRUE(Contains(scan.Out, "end\nrows\n", Compare::Binary)) << "a message box was shown: " << scan.Out;
  const std::map<std::string, std::string> verdicts = Verdicts(scan.Out);
  for (std::size_t i = 0; i < web_.Rows().size(); ++i) {
    const Behaviour& row = web_.Rows()[i];
    SCOPED_TRACE(row.Name);
    const auto verdict = verdicts.find(ToUtf8(row.SiteName()));
    EXPECT_EQ(verdict == verdicts.end() ? "no row" : verdict->second, row.Verdict);
    CheckConnections(i, scan.Out);
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
    {"SecurePages", SecurePages},
    {"BrokenSecurePages", BrokenSecurePages},
    {"SecurePortsGivenUp", SecurePortsGivenUp},
};

INSTANTIATE_TEST_SUITE_P(Servers, HostileScanTest, testing::ValuesIn(kGroups),
                         [](const auto& group) { return std::string(group.param.Name); });

}  // namespace
}  // namespace requite::hostile
