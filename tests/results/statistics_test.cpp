// SPDX-License-Identifier: MIT
// The counters of a scan, their labels and their history in the settings store.
#include "results/statistics.h"

#include <gtest/gtest.h>

#include <array>

#include "shell/main_window/form1_rig.h"
#include "support/failure_number.h"

namespace requite::test {
namespace {

struct StatisticsRig : Form1Rig {
  std::string Labels() {
    std::string all;
    for (const TextBox& label : Form.lblStats) all += label.Text() + " ";
    return all;
  }
};

TEST(Statistics, EachKindRaisesItsCounterAndShowsAllFigures) {
  StatisticsRig rig;
  for (const int kind : {0, 0, 1, 2, 2, 2, 3, 4, 4}) rig.Form.Figures.UpdateStats(static_cast<Counted>(kind));
  EXPECT_EQ(rig.Labels(), "2 1 3 2 3 2 1 ");
}

TEST(Statistics, HistoryIsInTheStoreAtOnceAndOutlastsTheProgram) {
  StatisticsRig rig;
  rig.Services.Store.Set("lHistWebScanned", "41");
  rig.Services.Store.Set("lHistEmailFound", "7");
  rig.Form.Figures.ReadHistory();
  rig.Form.Figures.UpdateStats(Counted::PageScanned);
  EXPECT_EQ(rig.Services.Store.Read("lHistWebScanned"), "42");
  rig.Form.Figures.UpdateStats(Counted::LinkFound);
  EXPECT_EQ(rig.Services.Store.Read("lHistEmailFound"), "8");

  const int writes = rig.Services.Store.Writes;
  for (const Counted kind : {Counted::PageFound, Counted::MainSite, Counted::LinkingSite}) {
    rig.Form.Figures.UpdateStats(kind);
  }
  EXPECT_EQ(rig.Services.Store.Writes, writes);
}

TEST(Statistics, ResetKeepsHistoryAndTheOldFiguresOnScreen) {
  StatisticsRig rig;
  for (int kind = 0; kind <= 4; ++kind) rig.Form.Figures.UpdateStats(static_cast<Counted>(kind));
  rig.Form.Figures.ResetPageCounters();
  rig.Form.Figures.ResetSiteCounters();
  EXPECT_EQ(rig.Labels(), "1 1 1 1 1 1 1 ");
  rig.Form.Figures.RefreshStats();
  EXPECT_EQ(rig.Labels(), "0 0 0 1 1 0 0 ");
}

TEST(Statistics, AFullCounterIsAnOverflow) {
  StatisticsRig rig;
  rig.Services.Store.Set("lHistWebScanned", "2147483647");
  rig.Form.Figures.ReadHistory();
  EXPECT_EQ(NumberOf([&] { rig.Form.Figures.UpdateStats(Counted::PageScanned); }), 6);
  EXPECT_EQ(rig.Services.Store.Read("lHistWebScanned"), "2147483647");
}

}  // namespace
}  // namespace requite::test
