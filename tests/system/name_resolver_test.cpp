// SPDX-License-Identifier: MIT
// Look-ups that hang, fail and succeed, and all addresses of a host tried in turn.
#include "system/name_resolver.h"

#include <gtest/gtest.h>

#include <atomic>
#include <map>

#include "qt/loop_rig.h"
#include "system/connection_recorder.h"
#include "system/local_server.h"
#include "system/page_connection.h"

namespace requite::test {
namespace {

// Worker threads may outlive a test, so what they touch lives as long as the program.
std::atomic<int> lookUps = 0;
std::atomic<bool> hang = false;

/// Hosts that begin with "mute" hang until the test lets go; "unknown" does not exist; the others have
/// an address that refuses before the one that answers.
SocketAddresses TestLookUp(const std::string& host) {
  ++lookUps;
  if (host.starts_with("mute")) hang.wait(true);
  if (host == "unknown") return {};
  return {NumericAddress("127.0.0.2")[0], NumericAddress("127.0.0.1")[0]};
}

class NameResolverTest : public testing::Test {
 protected:
  NameResolverTest() {
    lookUps = 0;
    hang = true;
  }
  ~NameResolverTest() override { LetGo(); }

  static void LetGo() {
    hang = false;
    hang.notify_all();
  }
  void Ask(const std::string& host) {
    resolver_->Ask(host, &answers_[host],
                   [this, host](const SocketAddresses& found) { answers_[host] = int(found.size()); });
  }

  LoopRig rig_;
  SocketPoller poller_{rig_.Descriptors, rig_.Guard};
  std::unique_ptr<NameResolver> resolver_ = std::make_unique<NameResolver>(poller_, TestLookUp);
  std::map<std::string, int> answers_;
};

TEST_F(NameResolverTest, AnswersAreEventsAndFoundNamesAreKept) {
  EXPECT_FALSE(resolver_->Known("site.example"));
  Ask("site.example");
  Ask("unknown");
  EXPECT_EQ(answers_.size(), 2U);
  EXPECT_EQ(answers_["site.example"], 0);
  answers_["unknown"] = -1;
  ASSERT_TRUE(rig_.Until([&] { return answers_["site.example"] == 2 && answers_["unknown"] == 0; }));
  EXPECT_TRUE(resolver_->Known("SITE.example"));
  EXPECT_FALSE(resolver_->Known("unknown"));
  EXPECT_EQ(resolver_->Known("127.0.0.1")->size(), 1U);
  EXPECT_EQ(resolver_->Known("::1")->size(), 1U);
  EXPECT_EQ(lookUps, 2);
}

TEST_F(NameResolverTest, AForgottenQuestionIsNotAnswered) {
  Ask("mute.example");
  resolver_->Forget(&answers_["mute.example"]);
  LetGo();
  ASSERT_TRUE(rig_.Until([&] { return resolver_->Known("mute.example").has_value(); }));
  EXPECT_EQ(answers_["mute.example"], 0);
}

TEST_F(NameResolverTest, AHangingLookUpHoldsUpNeitherOthersNorTheEnd) {
  Ask("mute.example");
  Ask("site.example");
  ASSERT_TRUE(rig_.Until([&] { return answers_["site.example"] == 2; }));
  EXPECT_EQ(answers_["mute.example"], 0);
  // The worker still hangs. It answers to nobody later.
  resolver_.reset();
  LetGo();
}

TEST_F(NameResolverTest, HangingLookUpsThatNobodyWaitsForHoldNobodyUpUntilTheThreadsAreTooMany) {
  Ask("mute");
  for (std::size_t i = 1; i < NameResolver::kMostWorkers; ++i) Ask("mute" + std::to_string(i));
  Ask("waiting.example");
  rig_.Settle();
  EXPECT_EQ(answers_["waiting.example"], 0);
  resolver_->Forget(&answers_["mute1"]);
  EXPECT_TRUE(rig_.Until([&] { return answers_["waiting.example"] == 2; })) << "its turn has come";

  for (std::size_t i = 0; i < 2 * NameResolver::kMostThreads; ++i) {
    const std::string host = "mute.again" + std::to_string(i);
    Ask(host);
    resolver_->Forget(&answers_[host]);
    if (i != NameResolver::kMostThreads / 2) continue;
    Ask("site.example");
    EXPECT_TRUE(rig_.Until([&] { return answers_["site.example"] == 2; }));
  }
  constexpr int kAnswered = 2;
  EXPECT_TRUE(rig_.Until([&] { return lookUps == kAnswered + int(NameResolver::kMostThreads); }));
  Ask("late.example");
  rig_.Settle();
  EXPECT_EQ(lookUps, kAnswered + static_cast<int>(NameResolver::kMostThreads));
  LetGo();
  EXPECT_TRUE(rig_.Until([&] { return answers_["late.example"] == 2; }));
}

TEST_F(NameResolverTest, AllAddressesOfAHostAreTriedAndCloseForgetsTheLookUp) {
  LocalServer server([](ServedConnection& client) { client.ReadRequest(); });
  const ConnectMap map;
  PageConnection connection(poller_, *resolver_, map);
  const Recorder recorder(connection);
  connection.Connect("site.example", server.Port());
  ASSERT_TRUE(rig_.Until([&] { return recorder.Closes == 1; }));

  connection.Connect("mute.example", server.Port());
  connection.Close();
  LetGo();
  ASSERT_TRUE(rig_.Until([&] { return resolver_->Known("mute.example").has_value(); }));
  rig_.Settle();
  EXPECT_EQ(recorder.Closes, 1);
}

}  // namespace
}  // namespace requite::test
