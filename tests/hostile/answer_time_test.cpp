// SPDX-License-Identifier: MIT
// Stop and Skip answer at once, wherever a secure connection waits.
#include <gtest/gtest.h>
#include <openssl/ssl.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <memory>

#include "console/child_process.h"
#include "hostile/hostile_web.h"
#include "hostile/secure_acts.h"
#include "platform/text.h"

namespace requite::hostile {
namespace {

using test::ChildProcess;
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// Far above what an answer takes on a machine with other work, far below any time-out of the scan.
constexpr milliseconds kMost{1500};
/// Attempts then last three seconds, pages this long.
constexpr int kTimeoutSeconds = 20;
constexpr int kStalledAfter = 150;  // milliseconds, by when a connection has got to the place where it stalls

void Stay(ServedConnection& client) { client.WaitForPeer(); }

/// What the first site's connections meet, one after the other.
std::vector<Act> Stalls() {
  const TlsServer& tls12 = GoodServer(TLS1_2_VERSION);
  const TlsServer& tls13 = GoodServer(TLS1_3_VERSION);
  const std::string page = Joined({kHeader, kLink});
  const std::string moved =
      Joined({kHeader, "302 Found <a href=\"https://stalls.secure.example/new\">here</a></body>"});
  return {
      Stay,
      StallInHandshake(tls13, 3),
      StallInHandshake(tls13, 300),
      StallInHandshake(tls12, 300),
      Securely(tls13, [](ServerEnd&, ServedConnection& client) { Stay(client); }),
      Securely(tls13,
               [page](ServerEnd& server, ServedConnection& client) {
                 server.Send(page);
                 Flush(server, client);
                 Stay(client);
               }),
      Securely(tls12, StallInRecord(page)),
      // Two connections: the second one is that of a GET, in its handshake.
      Securely(tls13, SecureAnswer(moved)),
      Stay,
  };
}

struct Web {
  const char* Name;
  bool IsBlackHole;
  int Rounds;

  friend std::ostream& operator<<(std::ostream& out, const Web& web) { return out << web.Name; }
};

/// The site that stalls, and one that answers.
std::vector<Behaviour> Rows(const Web& web) {
  const auto next = std::make_shared<std::atomic<std::size_t>>(0);
  const Act stall = [next, all = Stalls()](ServedConnection& client) { all.at((*next)++)(client); };
  const Act answer = Securely(GoodServer(TLS1_3_VERSION), SecureAnswer(Joined({kHeader, kLink})));
  const SecurePort stalls =
      web.IsBlackHole ? SecurePort{.Act = {}, .Closed = test::BlackHolePort} : SecurePort{.Act = stall};
  return {{"stalls", "", {}, 1, "stalls.secure.example", stalls},
          {"answers", "", {}, 1, "answers.secure.example", SecurePort{.Act = answer}}};
}

class AnswerTimeTest : public testing::TestWithParam<Web> {
 protected:
  /// A scan a round, in which the button is pressed once.
  static std::string Script(const std::string& button) {
    const std::string when = "after " + std::to_string(kStalledAfter);
    std::string script;
    for (int round = 0; round < GetParam().Rounds; ++round) {
      script += when + " echo pressed\n" + when + " click " + button +
                "\nclick Command1\nwait idle 30\necho idle\nrows List3\n";
    }
    return script;
  }

  /// Runs the script and notes each round's time from the press to the end of the scan.
  std::string Run(const std::string& button) {
    ChildProcess scan(REQUITE_CONSOLE, web_.Arguments(Script(button), kTimeoutSeconds));
    Clock::time_point pressed;
    std::size_t seen = 0;
    scan.OnOut = [&] {
      for (std::size_t end; (end = scan.Out.find('\n', seen)) != std::string::npos; seen = end + 1) {
        const std::string_view line = std::string_view(scan.Out).substr(seen, end - seen);
        if (line == "pressed") pressed = Clock::now();
        if (line == "idle")
          times_.push_back(std::chrono::duration_cast<milliseconds>(Clock::now() - pressed));
      }
    };
    EXPECT_EQ(scan.Wait(), 0) << scan.Err;
    return scan.Out;
  }

  void TearDown() override {
    ASSERT_EQ(times_.size(), static_cast<std::size_t>(GetParam().Rounds));
    std::string all;
    for (const milliseconds time : times_) all += std::to_string(time.count()) + " ";
    RecordProperty("milliseconds", all);
    EXPECT_LE(*std::max_element(times_.begin(), times_.end()), kMost) << all;
    EXPECT_EQ(web_.Server(0).Plain.Connections(), 0);
  }

  HostileWeb web_{Rows(GetParam())};
  std::vector<milliseconds> times_;
};

std::size_t Count(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = 0; (at = text.find(part, at)) != std::string_view::npos; at += part.size()) ++count;
  return count;
}

TEST_P(AnswerTimeTest, StopEndsTheScan) { EXPECT_EQ(Count(Run("cmdStop"), "secure.example"), 0U); }

TEST_P(AnswerTimeTest, SkipGoesOnWithTheNextSite) {
  const std::string out = Run("cmdSkip");
  const auto rounds = static_cast<std::size_t>(GetParam().Rounds);
  EXPECT_EQ(Count(out, "None Found (Skipped)"), rounds) << out;
  // What the GET of a moved page returns after a skip counts as a page of the next site.
  EXPECT_EQ(Count(out, kFound), rounds - (GetParam().IsBlackHole ? 0 : 1)) << out;
}

INSTANTIATE_TEST_SUITE_P(Waits, AnswerTimeTest,
                         testing::Values(Web{"Stalls", false, static_cast<int>(Stalls().size()) - 1},
                                         Web{"BlackHole", true, 2}),
                         [](const auto& web) { return std::string(web.param.Name); });

}  // namespace
}  // namespace requite::hostile
