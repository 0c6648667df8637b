// SPDX-License-Identifier: MIT
// Yields, waits and timers of the event loop, the code page, and the rules of connections.
#include <gtest/gtest.h>

#include <QTimer>
#include <string>

#include "qt/loop_rig.h"
#include "qt/services/code_page.h"
#include "qt/services/qt_timer.h"
#include "system/connect_map.h"
#include "system/loop_event.h"

namespace requite::test {
namespace {

TEST(QtEventLoopTest, YieldsDeliverWhatWaitsOnceTheSliceIsOver) {
  LoopRig rig;
  int delivered = 0;
  rig.Loop.RunFor(std::chrono::milliseconds(0));
  const std::uint64_t before = rig.Loop.Deliveries();
  std::uint64_t within = before;
  QTimer::singleShot(0, [&] {
    ++delivered;
    within = rig.Loop.Deliveries();
  });
  for (int yields = 0; delivered == 0 && yields < 100'000'000; ++yields) rig.Loop.LetPendingEventsRun();
  EXPECT_EQ(delivered, 1);
  EXPECT_NE(within, before);
  EXPECT_NE(rig.Loop.Deliveries(), within) << "what the handler did last counts too";
}

TEST(QtEventLoopTest, WhatASocketsEventPutsOffIsDoneBeforeAnyOtherEvent) {
  LoopRig rig;
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

TEST(QtTimerTest, TicksRepeatUntilStoppedAndFailuresStayInside) {
  LoopRig rig;
  QtTimer timer(rig.Guard);
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

TEST(CodePageTest, EveryByteSurvivesThereAndBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(FromUnicode(ToUnicode(all)), all);
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
  EXPECT_EQ(ToUtf8("\x80\x8A\x81 \xE9"), "\xE2\x82\xAC\xC5\xA0\xC2\x81 \xC3\xA9");
}

TEST(CodePageTest, AStrangeCharacterIsOneQuestionMark) {
  EXPECT_EQ(FromUtf8("a\xE6\xBC\xA2z"), "a?z");               // Chinese
  EXPECT_EQ(FromUtf8("a\xF0\x9F\x98\x80z"), "a?z");           // beyond the basic plane
  EXPECT_EQ(FromUtf8("a\xC2\x80z\xC2\x9F"), "a?z?");          // controls whose bytes are letters here
  EXPECT_EQ(FromUtf8(std::string_view("a\xFFz", 3)), "a?z");  // no UTF-8
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
