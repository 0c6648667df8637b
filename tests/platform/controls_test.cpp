// SPDX-License-Identifier: MIT
// Which changes of a control run its handler, and which values it refuses.
#include "platform/controls.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/failure_number.h"
#include "support/rows.h"

namespace requite::test {
namespace {

using Texts = std::vector<std::string>;

TEST(TextBox, SilentBoxRunsItForTheUserOnly) {
  TextBox box("txtTimeout", "60", TextBox::ProgramChange::Silent);
  ViewProbe view(box);
  Texts seen;
  box.OnChange = [&] { seen.push_back(box.Text()); };
  box.SetText("30");
  EXPECT_EQ(seen, Texts{});
  EXPECT_EQ(view.Refreshes, 1);
  box.UserSets("20");
  EXPECT_EQ(seen, Texts{"20"});
}

TEST(CheckBox, ChangeRunsTheClickWhoeverMadeIt) {
  CheckBox box("chkSound", "Sound");
  std::vector<int> seen;
  box.OnClick = [&] { seen.push_back(box.Value()); };
  box.SetValue(0);
  box.SetValue(1);
  box.SetValue(1);
  box.SetValue(2);
  box.Click();
  box.Click();
  EXPECT_EQ(seen, (std::vector<int>{1, 2, 0, 1}));
  EXPECT_EQ(NumberOf([&] { box.SetValue(3); }), 380);
  EXPECT_EQ(NumberOf([&] { box.SetValue(-1); }), 380);
  EXPECT_EQ(box.Value(), 1);
}

TEST(ComboBox, PickingTakesTheRowAndTypingLeavesIt) {
  ComboBox combo("cmbAdvance", "25", {"10", "25"});
  int clicks = 0;
  Texts typed;
  combo.OnClick = [&] { ++clicks; };
  combo.OnChange = [&] { typed.push_back(combo.Text()); };
  EXPECT_EQ(combo.ListIndex(), -1);
  combo.SetListIndex(-1);
  EXPECT_EQ(combo.Text(), "25") << "nothing was chosen before: the text stays";
  EXPECT_EQ(clicks, 0);
  combo.SetListIndex(0);
  EXPECT_EQ(combo.Text(), "10");
  EXPECT_EQ(clicks, 1);
  combo.UserSets("33");
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(typed, Texts{"33"});
  combo.SetText("44");
  EXPECT_EQ(typed, Texts{"33"}) << "what the program sets is no typing";
  EXPECT_EQ(NumberOf([&] { combo.SetListIndex(2); }), 380);
  EXPECT_EQ(NumberOf([&] { combo.SetListIndex(-2); }), 380);
  combo.SetListIndex(1);
  combo.SetListIndex(-1);
  EXPECT_EQ(combo.Text(), "");
}

TEST(ProgressBar, RoundsHalvesToEvenAndRefusesTheRest) {
  ProgressBar bar("ProgressBar1");
  ViewProbe view(bar);
  bar.SetValue(0.5);
  EXPECT_EQ(view.Refreshes, 0);
  bar.SetValue(1.5);
  EXPECT_EQ(bar.Value(), 2);
  bar.SetValue(100);
  for (const double value : {-0.1, 100.1, std::nan(""), static_cast<double>(INFINITY)}) {
    EXPECT_EQ(NumberOf([&] { bar.SetValue(value); }), 380) << value;
  }
  EXPECT_EQ(bar.Value(), 100);
}

}  // namespace
}  // namespace requite::test
