// SPDX-License-Identifier: MIT
// What the main window's controls do: enabled states, tabs, menus, lists and the Web tab.
#include <gtest/gtest.h>

#include "scan/scan_share.h"
#include "shell/main_window/form1_rig.h"

namespace requite {
namespace {

using test::Form1Rig;

/// The names of the given controls that are enabled in effect.
std::string EnabledOf(Form1& form, std::initializer_list<const char*> names) {
  std::string enabled;
  for (const char* name : names) {
    const NamedControl control = form.Controls.Find(name);
    EXPECT_TRUE(control) << name;
    if (control && control.Which->EnabledInEffect()) enabled += std::string(name) + " ";
  }
  return enabled;
}

std::string Commands(Form1& form) {
  return EnabledOf(form, {"Command1", "cmdStop", "cmdSkip", "cmdNextSearch", "Command10", "Command11",
                          "cmdNew", "cmdOpen", "cmdSave", "txtDomain", "List4", "cmdAdd2", "cmdResume",
                          "cmdViewDatabase", "Command2", "Command3"});
}

TEST(Form1Commands, AreSwitchedByTheStartAndTheEndOfAScan) {
  Form1Rig rig;
  rig.Form.Start();
  EXPECT_EQ(Commands(rig.Form),
            "Command1 cmdNextSearch Command10 Command11 cmdNew cmdOpen cmdSave txtDomain List4 "
            "cmdViewDatabase Command2 Command3 ");
  rig.AddSites("main.example", {"partner.example"});
  rig.Form.Command1.Click();
  // Start Scan itself stays enabled until the second site begins: that gap is wanted.
  EXPECT_EQ(Commands(rig.Form), "Command1 cmdStop cmdSkip cmdNextSearch Command11 ");
  EXPECT_EQ(rig.Services.Connection.Host, "partner.example");
  rig.Form.Lists.List2.Add({"partner.example/next"});
  rig.Form.cmdDoSearch.Click();
  EXPECT_EQ(Commands(rig.Form), "cmdStop cmdSkip cmdNextSearch Command11 ");
  rig.Form.cmdStop.Click();
  EXPECT_EQ(Commands(rig.Form),
            "Command1 Command10 Command11 cmdNew cmdOpen cmdSave txtDomain List4 cmdAdd2 cmdResume "
            "cmdViewDatabase Command2 Command3 ");
}

TEST(Form1Tabs, EachShowsItsControlsAndHidesAllOthers) {
  Form1Rig rig;
  rig.Form.Start();
  const std::vector<std::string> ofTab[] = {
      {"List3", "lstErr", "lblErr"},
      {"WebBrowser1", "cmdBack", "cmdForward", "cmdWebStop", "cmdRefresh", "cmdGo", "txtURL"},
      {"Frame5"},
      {"WebBrowser2", "Command8", "Command8a"},
      {"framePost", "SkinLabel9"}};
  const auto expectOnShow = [&](int shown) {
    for (int tab = 1; tab <= 5; ++tab) {
      for (const std::string& name : ofTab[tab - 1]) {
        EXPECT_EQ(rig.Form.Controls.Find(name).Which->Visible(), tab == shown) << name << " on tab " << shown;
      }
    }
  };
  expectOnShow(1);
  for (const int tab : {3, 2, 5, 4, 1}) {
    rig.Form.TabStrip1.Select(tab);
    expectOnShow(tab);
  }
  rig.Form.ShowTab(0);
  rig.Form.ShowTab(6);
  expectOnShow(1);
}

TEST(Form1Tabs, PagesAddsTheMainSitesAtEachVisitAndPostFillsAnew) {
  Form1Rig rig;
  rig.Form.Start();
  rig.AddSites("a.example", {});
  rig.AddSites("b.example", {});
  rig.Form.cmbSites.UserSets("Select");
  for (int visit = 0; visit < 3; ++visit) {
    rig.Form.TabStrip1.Select(3);
    rig.Form.TabStrip1.Select(5);
  }
  EXPECT_EQ(rig.Form.Combo3.Items().size(), 6U);
  EXPECT_EQ(rig.Form.Combo3.Text(), "Select");
  EXPECT_EQ(rig.Form.cmbSites.Items(), (std::vector<std::string>{"a.example", "b.example"}));
}

TEST(Form1Lists, OnlyLinkingSitesAreGuardedAgainstASortDuringAScan) {
  Form1Rig rig;
  rig.Form.Start();
  rig.AddSites("main.example", {"a.example", "b.example"});
  rig.Form.Sites.List3.Add({"m", "1", "", "", ""});
  rig.Form.Sites.List3.Add({"m", "2", "", "", ""});
  rig.Form.State.Scanning = true;
  rig.Form.Sites.List1(1).OnColumnClick(0);
  ASSERT_EQ(rig.Services.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(rig.Services.Dialogs.Boxes[0].Text, "You cannot sort this column while a search is running.");
  EXPECT_EQ(rig.Form.Sites.List1(1).At(0).WebsiteUrl, "a.example");
  rig.Form.Sites.List3.OnColumnClick(1);
  EXPECT_EQ(rig.Form.Sites.List3.At(0).Linking, "2");
  rig.Form.State.Scanning = false;
  rig.Form.Sites.List1(1).OnColumnClick(0);
  EXPECT_EQ(rig.Form.Sites.List1(1).At(0).WebsiteUrl, "b.example");
}

TEST(ControlIndex, FindsControlsMembersAndListsByTheirNames) {
  Form1Rig rig;
  Form1& form = rig.Form;
  EXPECT_EQ(form.Controls.Find("cmdStop").Which, &form.cmdStop);
  EXPECT_EQ(form.Controls.Find("lblStats(3)").Which, &form.lblStats[3]);
  EXPECT_TRUE(form.Controls.Find("lblStats(3)").ReadOnly);
  for (const char* unknown :
       {"", "cmdstop", "lblStats(7)", "optAll(2)", "mnuScanItem(3)", "List1(1)", "List1"}) {
    EXPECT_FALSE(form.Controls.Find(unknown)) << unknown;
  }
  rig.AddSites("a.example", {});
  rig.AddSites("b.example", {});
  EXPECT_EQ(form.Controls.Find("List1(1)").Which, &form.Sites.List1(1));
  EXPECT_EQ(form.Controls.Find("List1").Which, &form.Sites.List1(2));
}

}  // namespace
}  // namespace requite
