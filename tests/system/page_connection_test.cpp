// SPDX-License-Identifier: MIT
// Page connections on real loopback sockets: the order of events, silence, and yields in handlers.
#include "system/page_connection.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <optional>

#include "qt/loop_rig.h"
#include "qt/services/qt_timer.h"
#include "system/connection_recorder.h"
#include "system/local_server.h"
#include "system/replayed_connection.h"

namespace requite::test {
namespace {

/// The forms of a connection, which have one contract. A replayed page is recorded meanwhile or before.
enum class Form { OfAPage, Replayed, RecordedFirst };

std::string NameOf(Form form) {
  return form == Form::OfAPage ? "OfAPage" : form == Form::Replayed ? "Replayed" : "RecordedFirst";
}

class EachConnection : public testing::TestWithParam<Form> {
 protected:
  LoopRig rig_;
  SocketPoller poller_{rig_.Descriptors, rig_.Guard};
  NameResolver resolver_{poller_};
  ConnectMap map_;
  std::unique_ptr<PageConnection> page_ = std::make_unique<PageConnection>(poller_, resolver_, map_);
  std::optional<ReplayedConnection> replayed_;
  Connection& connection_ = Made();
  Recorder recorder_{connection_};

  /// Lets events run inside a handler, longer than any slice.
  void YieldLong() { rig_.Loop.RunFor(std::chrono::milliseconds(10)); }

 private:
  Connection& Made() {
    if (GetParam() == Form::OfAPage) return *page_;
    poller_.ServeMany();
    replayed_.emplace(std::move(page_), rig_.Descriptors, rig_.Guard);
    if (GetParam() == Form::RecordedFirst) {
      auto ahead = std::make_unique<PageConnection>(poller_, resolver_, map_);
      replayed_->RecordFirst(std::move(ahead), rig_.Guard, rig_.Loop);
    }
    return replayed_->Connection();
  }
};

INSTANTIATE_TEST_SUITE_P(Connection, EachConnection,
                         testing::Values(Form::OfAPage, Form::Replayed, Form::RecordedFirst),
                         [](const auto& form) { return NameOf(form.param); });

/// What a recording does not do: it is always read.
class PageConnectionTest : public EachConnection {};

INSTANTIATE_TEST_SUITE_P(Connection, PageConnectionTest, testing::Values(Form::OfAPage));

TEST_P(EachConnection, APageComesInOrderAndWhole) {
  for (const std::size_t size : {1UL, 2048UL, 65536UL, 131072UL, 3000000UL}) {
    SCOPED_TRACE(size);
    const std::string page(size, 'p');
    std::string request;
    LocalServer server([&](ServedConnection& client) {
      request = client.ReadRequest();
      client.Send(page);
    });
    recorder_.Events.clear();
    recorder_.Data.clear();
    recorder_.Closes = 0;
    connection_.Connect("127.0.0.1", server.Port());
    ASSERT_TRUE(rig_.Until([&] { return recorder_.Closes == 1; }));
    EXPECT_EQ(recorder_.Events, kWholePage);
    EXPECT_EQ(recorder_.Data, page);
    EXPECT_EQ(request, "GET / HTTP/1.1\r\n\r\n");
  }
}

TEST_P(EachConnection, DataThatComesTogetherWithTheEndIsNotLost) {
  LocalServer server([](ServedConnection& client) {
    client.ReadRequest();
    client.Send("first ");
    client.Send("tail");
  });
  // The handler of the first event takes so long that data and end have both arrived when it returns.
  recorder_.OnConnected = [this] { YieldLong(); };
  connection_.Connect("127.0.0.1", server.Port());
  ASSERT_TRUE(rig_.Until([&] { return recorder_.Closes == 1; }));
  EXPECT_EQ(recorder_.Events, kWholePage);
  EXPECT_EQ(recorder_.Data, "first tail");
}

TEST_P(EachConnection, HandlersThatYieldAndAskForTheNextPageNeverNest) {
  constexpr int kPages = 15;
  LocalServer server([](ServedConnection& client) {
    client.ReadRequest();
    client.Send("page");
  });
  const auto yield = [this] { YieldLong(); };
  recorder_.OnConnected = yield;
  recorder_.OnData = yield;
  recorder_.OnClosed = [&] {
    if (recorder_.Closes < kPages) connection_.Connect("localhost", server.Port());
    YieldLong();
  };
  int ticks = 0;
  QtTimer timer(rig_.Guard);
  timer.OnTick = [&] { ++ticks; };
  timer.Start(1);
  map_.Add({"localhost", std::nullopt, {"127.0.0.1", server.Port()}});
  connection_.Connect("localhost", server.Port());
  ASSERT_TRUE(rig_.Until([&] { return recorder_.Closes == kPages; }));
  EXPECT_EQ(recorder_.Deepest, 1);
  EXPECT_GE(ticks, kPages);
}

TEST_P(EachConnection, WhatCannotBeReachedIsSilent) {
  LocalServer resetting([](ServedConnection& client) {
    client.ReadRequest();
    client.Reset();
  });
  connection_.Connect("127.0.0.1", RefusingPort());
  rig_.Settle();
  for (const std::string& host : {std::string(), std::string("no.such.host.invalid"), std::string("a b"),
                                  std::string("127.0.0.1:80"), std::string("127.0.0.1\0x", 11)}) {
    connection_.Connect(host, resetting.Port());
    rig_.Settle();
  }
  EXPECT_EQ(recorder_.Events, Names{});

  connection_.Connect("127.0.0.1", resetting.Port());
  ASSERT_TRUE(rig_.Until([&] { return !recorder_.Events.empty(); }));
  rig_.Settle();
  EXPECT_EQ(recorder_.Events, Names{"connect"});
}

TEST_P(EachConnection, AResetThatTheRequestFindsIsNoEnd) {
  std::atomic<bool> connected = false;
  std::atomic<bool> reset = false;
  LocalServer server([&](ServedConnection& client) {
    connected.wait(false);
    client.Reset();
    reset = true;
  });
  recorder_.BeforeRequest = [&] {
    connected = true;
    connected.notify_one();
    while (!reset) YieldLong();
    YieldLong();
  };
  connection_.Connect("127.0.0.1", server.Port());
  ASSERT_TRUE(rig_.Until([&] { return !recorder_.Events.empty(); }));
  rig_.Settle();
  EXPECT_EQ(recorder_.Events, Names{"connect"});
}

TEST_P(EachConnection, CloseDropsWhatIsOnItsWay) {
  LocalServer server([](ServedConnection& client) {
    client.ReadRequest();
    client.Send("late");
  });
  connection_.Connect("127.0.0.1", server.Port());
  connection_.Close();
  connection_.Close();
  rig_.Settle();
  EXPECT_EQ(recorder_.Events, Names{});

  recorder_.OnConnected = [this] {
    YieldLong();
    connection_.Close();
  };
  connection_.Connect("127.0.0.1", server.Port());
  ASSERT_TRUE(rig_.Until([&] { return !recorder_.Events.empty(); }));
  rig_.Settle();
  EXPECT_EQ(recorder_.Events, Names{"connect"});
  EXPECT_EQ(connection_.GetData(), "");
  connection_.SendData("to nobody");
}

TEST_P(EachConnection, AConnectInTheMiddleOfAPageDropsTheOldOne) {
  LocalServer mute([](ServedConnection& client) { client.WaitForPeer(); });
  LocalServer server([](ServedConnection& client) {
    client.ReadRequest();
    client.Send("second");
  });
  recorder_.OnConnected = [&] {
    recorder_.OnConnected = nullptr;
    connection_.Connect("127.0.0.1", server.Port());
  };
  connection_.Connect("127.0.0.1", mute.Port());
  ASSERT_TRUE(rig_.Until([&] { return recorder_.Closes == 1; }));
  EXPECT_EQ(recorder_.Events, (Names{"connect", "connect", "data", "close"}));
  EXPECT_EQ(recorder_.Data, "second");
}

TEST_P(EachConnection, AConnectThatIsDroppedInItsHandlerRaisesNoEventOfTheNextOne) {
  LocalServer server([](ServedConnection& client) { client.ReadRequest(); });
  recorder_.OnClosed = [&] {
    connection_.Connect("127.0.0.1", server.Port());  // established at once
    connection_.Connect("127.0.0.1", RefusingPort());
  };
  connection_.Connect("127.0.0.1", server.Port());
  ASSERT_TRUE(rig_.Until([&] { return recorder_.Closes == 1; }));
  rig_.Settle();
  EXPECT_EQ(recorder_.Events, (Names{"connect", "close"}));
}

TEST_P(PageConnectionTest, DataThatNobodyTakesMakesTheServerWait) {
  constexpr std::size_t kSize = 64 * 1024 * 1024;
  std::atomic<bool> allSent = false;
  LocalServer server([&](ServedConnection& client) {
    client.ReadRequest();
    client.Send(std::string(kSize, 'x'));
    allSent = true;
  });
  recorder_.TakesData = false;
  connection_.Connect("127.0.0.1", server.Port());
  ASSERT_TRUE(rig_.Until([&] { return recorder_.Announced >= PageConnection::kMostHeld; }));
  rig_.Settle();
  EXPECT_LT(recorder_.Announced, 2 * PageConnection::kMostHeld);
  EXPECT_FALSE(allSent);

  recorder_.TakesData = true;
  recorder_.Data = connection_.GetData();
  ASSERT_TRUE(rig_.Until([&] { return recorder_.Closes == 1; }));
  EXPECT_EQ(recorder_.Data.size(), kSize);
}

TEST_P(EachConnection, AFailureInAHandlerEndsAtTheEdgeOfTheLoop) {
  LocalServer server([](ServedConnection& client) { client.ReadRequest(); });
  recorder_.OnConnected = [] { throw RuntimeFailure(Failure::TypeMismatch); };
  recorder_.OnClosed = [] { throw std::bad_alloc(); };
  connection_.Connect("127.0.0.1", server.Port());
  ASSERT_TRUE(rig_.Until([&] { return rig_.Failures.size() == 2; }));
  EXPECT_EQ(rig_.Failures, (std::vector<int>{13, 7}));
}

}  // namespace
}  // namespace requite::test
