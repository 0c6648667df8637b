// SPDX-License-Identifier: MIT
// Yields, waits and timers of both event loops, and the rules of connections.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <string>

#include "qt/loop_rig.h"
#include "system/connect_map.h"
#include "system/loop_event.h"
#include "system/signal_watch.h"

namespace requite::test {
namespace {

template <class Rig>
class EventLoopTest : public testing::Test {};
using Rigs = testing::Types<LoopRig, PollRig>;
TYPED_TEST_SUITE(EventLoopTest, Rigs);

TYPED_TEST(EventLoopTest, YieldsDeliverWhatWaitsOnceTheSliceIsOver) {
  TypeParam rig;
  int delivered = 0;
  rig.Loop.RunFor(std::chrono::milliseconds(0));
  const std::uint64_t before = rig.Loop.Deliveries();
  std::uint64_t within = before;
  rig.After(0, [&] {
    ++delivered;
    within = rig.Loop.Deliveries();
  });
  for (int yields = 0; delivered == 0 && yields < 100'000'000; ++yields) rig.Loop.LetPendingEventsRun();
  EXPECT_EQ(delivered, 1);
  EXPECT_NE(within, before);
  EXPECT_NE(rig.Loop.Deliveries(), within) << "what the handler did last counts too";
}

TYPED_TEST(EventLoopTest, WhatASocketsEventPutsOffIsDoneBeforeAnyOtherEvent) {
  TypeParam rig;
  LateWork& late = rig.Loop.Late();
  std::string seen;
  bool waiting = false;
  const auto putOff = [&] { waiting = late.MayWait(); };
  const auto look = [&](const char* who) {
    seen += std::string(who) + (waiting ? " too early" : "") + (late.MayWait() ? " may wait; " : "; ");
  };
  late.Add(&late, [&] { seen += std::exchange(waiting, false) ? "done; " : ""; });
  bool waited = false;
  bool over = false;
  LoopEvent event(rig.Descriptors, [&] {
    putOff();
    rig.After(0, [&] { look("a yield's timer"); });
    rig.Loop.RunFor(std::chrono::milliseconds(0));
    putOff();
    rig.After(0, [&] {
      look("a wait's timer");
      waited = true;
      rig.Descriptors.Wake();
    });
    static_cast<void>(rig.Descriptors.RunUntil(waited));
    look("the handler");
    putOff();
    rig.After(0, [&] {
      look("a later timer");
      over = true;
      rig.Descriptors.Wake();
    });
  });
  event.Raise();
  // One run of the toolkit's own loop, as in the window program.
  ASSERT_TRUE(rig.Descriptors.RunUntil(over));
  EXPECT_EQ(seen, "done; a yield's timer; done; a wait's timer; the handler may wait; done; a later timer; ");
}

TYPED_TEST(EventLoopTest, TicksRepeatUntilStoppedAndFailuresStayInside) {
  TypeParam rig;
  const auto own = rig.MakeTimer();
  Timer& timer = *own;
  int ticks = 0;
  timer.OnTick = [&] {
    ++ticks;
    throw RuntimeFailure(Failure::Overflow);
  };
  timer.Start(1);
  ASSERT_TRUE(rig.Until([&] { return ticks >= 3; }));
  timer.Stop();
  const int before = ticks;
  rig.Settle();
  EXPECT_EQ(ticks, before);
  EXPECT_EQ(rig.Failures.size(), static_cast<std::size_t>(ticks));
}

TYPED_TEST(EventLoopTest, ABusyDescriptorAndABusyTimerLeaveEachOtherTheirTurns) {
  TypeParam rig;
  int raised = 0;
  int ticks = 0;
  LoopEvent busy(rig.Descriptors, [&] {
    ++raised;
    busy.Raise();
  });
  busy.Raise();
  const auto timer = rig.MakeTimer();
  timer->OnTick = [&] { ++ticks; };
  timer->Start(0);
  EXPECT_TRUE(rig.Until([&] { return raised >= 20 && ticks >= 20; })) << raised << ' ' << ticks;
}

TYPED_TEST(EventLoopTest, WhatAHandlerStopsStartsAgainOrDestroysIsNotDelivered) {
  TypeParam rig;
  std::string seen;
  const int readable = ::eventfd(1, EFD_CLOEXEC);
  std::unique_ptr<DescriptorWatch> own;
  std::unique_ptr<DescriptorWatch> other;
  own = rig.Descriptors.Watch(readable, [&, word = std::string("own; and what the handler has with it; ")] {
    other.reset();
    own.reset();
    seen += word;
  });
  other = rig.Descriptors.Watch(readable, [&] { seen += "other; "; });
  const auto first = rig.MakeTimer();
  const auto stopped = rig.MakeTimer();
  const auto restarted = rig.MakeTimer();
  first->OnTick = [&] {
    seen += "first; ";
    first->Stop();
    stopped->Stop();
    restarted->Start(100'000);
  };
  stopped->OnTick = [&] { seen += "stopped; "; };
  restarted->OnTick = [&] { seen += "restarted; "; };
  for (const auto* timer : {&first, &stopped, &restarted}) (*timer)->Start(1);
  const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(5);
  while (std::chrono::steady_clock::now() < end) {
  }
  rig.Settle();
  ::close(readable);
  EXPECT_EQ(seen, "own; and what the handler has with it; first; ");
}

TYPED_TEST(EventLoopTest, ATickIsNotNestedInItselfAndWaitsNest) {
  TypeParam rig;
  const auto timer = rig.MakeTimer();
  int depth = 0;
  int deepest = 0;
  int ticks = 0;
  bool innerOver = false;
  timer->OnTick = [&] {
    deepest = std::max(deepest, ++depth);
    ++ticks;
    innerOver = false;
    rig.After(5, [&] {
      innerOver = true;
      rig.Descriptors.Wake();
    });
    EXPECT_TRUE(rig.Descriptors.RunUntil(innerOver));
    --depth;
  };
  timer->Start(1);
  ASSERT_TRUE(rig.Until([&] { return ticks >= 3; }));
  EXPECT_EQ(deepest, 1);
}

TYPED_TEST(EventLoopTest, ASignalIsAnEventUntilTheWatchEnds) {
  TypeParam rig;
  int received = 0;
  {
    const SignalWatch watch(rig.Descriptors, [&] { ++received; });
    ::raise(SIGHUP);
    EXPECT_EQ(received, 0);
    ASSERT_TRUE(rig.Until([&] { return received == 1; }));
    ::raise(SIGHUP);
    ASSERT_TRUE(rig.Until([&] { return received == 2; }));
  }
  sigset_t blocked;
  ::pthread_sigmask(SIG_BLOCK, nullptr, &blocked);
  EXPECT_EQ(sigismember(&blocked, SIGINT), 0);
}

TEST(ConnectRuleTest, RulesAreReadOrRefused) {
  const auto rule = ReadConnectRule("Site.Example:80:127.0.0.1:8081");
  ASSERT_TRUE(rule);
  EXPECT_EQ(rule->Host, "Site.Example");
  EXPECT_EQ(rule->Port, 80);
  EXPECT_EQ(rule->Target.Host, "127.0.0.1");
  EXPECT_EQ(rule->Target.Port, 8081);
  const auto any = ReadConnectRule("::[::1]:80");
  ASSERT_TRUE(any);
  EXPECT_EQ(any->Host, "");
  EXPECT_FALSE(any->Port);
  EXPECT_EQ(any->Target.Host, "::1");
  for (const char* wrong : {"", "a", "a:80", "a:80:b", "a:80:b:", "a:80::1", "a:x:b:1", "a:80:b:0",
                            "a:80:b:65536", "a:80:b:1:2", "a:-1:b:1", "[a:80:b:1", "a:80:b: 1"}) {
    EXPECT_FALSE(ReadConnectRule(wrong)) << wrong;
  }
}

TEST(ConnectMapTest, TheFirstMatchWinsAndAnEmptyPartMatchesAny) {
  ConnectMap map;
  for (const char* rule : {"a.example:80:one:1", "a.example::two:2", ":81:three:3"}) {
    map.Add(*ReadConnectRule(rule));
  }
  const auto target = [&](const char* host, std::uint16_t port) {
    const Endpoint end = map.Target(host, port);
    return end.Host + " " + std::to_string(end.Port);
  };
  EXPECT_EQ(target("A.Example", 80), "one 1");
  EXPECT_EQ(target("a.example", 81), "two 2");
  EXPECT_EQ(target("b.example", 81), "three 3");
  EXPECT_EQ(target("b.example", 80), "b.example 80");
}

}  // namespace
}  // namespace requite::test
