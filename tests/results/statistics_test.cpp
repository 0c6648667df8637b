// SPDX-License-Identifier: MIT
// The counters of a scan, their labels and their history in the settings store.
#include "results/statistics.h"

#include <gtest/gtest.h>

#include <array>

#include "support/failure_number.h"
#include "support/fakes.h"

namespace requite::test {
namespace {

struct StatisticsRig {
  MemorySettings Store;
  std::array<TextBox, 7> lblStats{TextBox("lblStats(0)"), TextBox("lblStats(1)"), TextBox("lblStats(2)"),
                                  TextBox("lblStats(3)"), TextBox("lblStats(4)"), TextBox("lblStats(5)"),
                                  TextBox("lblStats(6)")};
  Window Form1{"Form1"};
  Statistics Counters{Settings(Store), lblStats, Form1};

  std::string Labels() {
    std::string all;
    for (const TextBox& label : lblStats) all += label.Text() + " ";
    return all;
  }
};

TEST(Statistics, EachKindRaisesItsCounterAndShowsAllFigures) {
  StatisticsRig rig;
  for (const int kind : {0, 0, 1, 2, 2, 2, 3, 4, 4}) rig.Counters.UpdateStats(static_cast<Counted>(kind));
  EXPECT_EQ(rig.Labels(), "2 1 3 2 3 2 1 ");
}

TEST(Statistics, HistoryIsInTheStoreAtOnceAndOutlastsTheProgram) {
  StatisticsRig rig;
  rig.Store.Set("lHistWebScanned", "41");
  rig.Store.Set("lHistEmailFound", "7");
  rig.Counters.ReadHistory();
  rig.Counters.UpdateStats(Counted::PageScanned);
  EXPECT_EQ(rig.Store.Read("lHistWebScanned"), "42");
  rig.Counters.UpdateStats(Counted::LinkFound);
  EXPECT_EQ(rig.Store.Read("lHistEmailFound"), "8");

  const int writes = rig.Store.Writes;
  for (const Counted kind : {Counted::PageFound, Counted::MainSite, Counted::LinkingSite}) {
    rig.Counters.UpdateStats(kind);
  }
  EXPECT_EQ(rig.Store.Writes, writes);
}

TEST(Statistics, ResetKeepsHistoryAndTheOldFiguresOnScreen) {
  StatisticsRig rig;
  for (int kind = 0; kind <= 4; ++kind) rig.Counters.UpdateStats(static_cast<Counted>(kind));
  rig.Counters.ResetPageCounters();
  rig.Counters.ResetSiteCounters();
  EXPECT_EQ(rig.Labels(), "1 1 1 1 1 1 1 ");
  rig.Counters.RefreshStats();
  EXPECT_EQ(rig.Labels(), "0 0 0 1 1 0 0 ");
}

TEST(Statistics, AFullCounterIsAnOverflow) {
  StatisticsRig rig;
  rig.Store.Set("lHistWebScanned", "2147483647");
  rig.Counters.ReadHistory();
  EXPECT_EQ(NumberOf([&] { rig.Counters.UpdateStats(Counted::PageScanned); }), 6);
  EXPECT_EQ(rig.Store.Read("lHistWebScanned"), "2147483647");
}

}  // namespace
}  // namespace requite::test
