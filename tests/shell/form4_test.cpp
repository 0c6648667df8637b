// SPDX-License-Identifier: MIT
// The import windows as they open beside the main window, and their weaker copy of the posting.
#include "shell/form4.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "shell/form1_rig.h"

namespace requite::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

struct ImportWindowRig : Form1Rig {
  Form4& Open(Button& command) {
    command.Click();
    const std::string name = Form.Windows.ShownNames().back();
    return static_cast<Form4&>(*Form.Windows.Find(name));
  }
};

TEST(Form4, ReadsItsSettingsWhenItOpensAndWritesEachChange) {
  ImportWindowRig rig;
  Form4& first = rig.Open(rig.Form.cmdImport);
  first.Option1.Choose(1);
  first.Text1.UserSets("page.example");
  first.Text2.UserSets("script.example");
  first.txtPost.UserSets("post.example");
  first.Combo1.SetListIndex(3);
  rig.AddSites("a.example", {});
  rig.AddSites("b.example", {});

  const Form4& second = rig.Open(rig.Form.cmdImport2);
  EXPECT_EQ(second.Option1.Chosen(), 1);
  EXPECT_EQ(second.Text1.Text(), "page.example");
  EXPECT_EQ(second.Text2.Text(), "script.example");
  EXPECT_EQ(second.txtPost.Text(), "post.example");
  EXPECT_EQ(second.Combo1.Text(), "Exclamation Point");
  EXPECT_EQ(second.cmbSites.Text(), "a.example");
  EXPECT_THAT(second.cmbSites.Items(), ElementsAre("a.example", "b.example"));
  first.Combo1.UserSets(";");
  EXPECT_EQ(rig.Setting("getURLCombo"), "-1");
}

TEST(Form4, ItsCloseEndsItsOwnRequestsAlone) {
  ImportWindowRig rig;
  rig.Form.Sites.List3.Add({"main.example", "a.example", "Direct Link", "001", "a.example"});
  Gets other(rig.Services.Internet);
  other.Start("http://other.example", "Mozilla", [](const auto&) {});
  rig.Services.Internet.OnOpen = [&] { rig.Form.Windows.Close("Form4"); };
  rig.Open(rig.Form.cmdImport).Command1.Click();
  EXPECT_EQ(rig.Services.Internet.EndedWaits, 1);
  rig.Open(rig.Form.cmdImport).cmdPost.Click();
  EXPECT_EQ(rig.Services.Internet.EndedWaits, 2);
  EXPECT_EQ(rig.Services.Internet.Started.size(), 1U);
}

TEST(Form4, MayBeClosedInTheMiddleOfEveryRun) {
  for (int yield = 1; yield < 9; ++yield) {
    ImportWindowRig rig;
    rig.AddSites("main.example", {});
    rig.Services.Internet.Bodies["http://p.example"] =
        "<a href=\"http://a.example\">\r<a href=\"http://b.example\">" + std::string(300, ' ');
    Form4& window = rig.Open(rig.Form.cmdImport);
    window.Text1.UserSets("http://p.example");
    const int before = rig.Services.EventLoop.Yields;
    rig.Services.EventLoop.AtYield(before + yield, [&] {
      window.Close();
      rig.Form.Windows.Show("Form4");  // another one takes its place and sweeps
    });
    window.Command1.Click();
    const auto& next = static_cast<const Form4&>(*rig.Form.Windows.Find("Form4"));
    EXPECT_NE(&next, &window);
    EXPECT_TRUE(next.ListView1.Empty());
  }
}

}  // namespace
}  // namespace requite::test
