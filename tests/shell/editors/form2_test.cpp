// SPDX-License-Identifier: MIT
// The three editors: what each fills itself with, stages and writes back.
#include "shell/editors/form2.h"

#include <gmock/gmock.h>

#include "platform/runtime_failure.h"
#include "shell/main_window/form1_rig.h"

namespace requite {
namespace {

using test::Form1Rig;
using test::Rows;
using testing::ElementsAre;
using testing::IsEmpty;

class Editors : public testing::Test {
 protected:
  Editors() {
    rig_.Form.Start();
    rig_.AddSites("main", {"a", "b"});
    Sites().ProjectSaved = true;
  }

  Project& Sites() { return rig_.Form.Sites; }
  void AddRules(std::initializer_list<Rule> rules) {
    for (const Rule& rule : rules) Sites().lstRules.Add(rule);
  }
  Form2& Editor(const char* name) { return static_cast<Form2&>(*rig_.Form.Windows.Find(name)); }
  bool IsOpen(const char* name) { return rig_.Form.Windows.Find(name) != nullptr; }
  Form2& EditSite(int row) {
    Form1Rig::ClickRow(Sites().List1(Sites().CurrentMainSite), row);
    rig_.Form.cmdEdit.Click();
    return Editor("Form2");
  }
  Form2& EditMain(int row) {
    Form1Rig::ClickRow(Sites().List4, row);
    rig_.Form.cmdEditMain.Click();
    return Editor("Form2a");
  }
  Form2& EditGlobal() {
    rig_.Form.Windows.Show("Form2b");
    return Editor("Form2b");
  }
  static void Stage(Form2& editor, int type, const std::string& value) {
    editor.Option1.Choose(type);
    editor.Text6.UserSets(value);
    editor.Command1.Click();
  }

  Form1Rig rig_;
};

TEST_F(Editors, EachShowsAndReplacesTheRulesOfItsScopeAlone) {
  const std::initializer_list<Rule> rules = {
      {"main", "a", "LimitString", "1"},      {"Main", "a", "LimitString", "case"},
      {"main", "Global", "LimitString", "2"}, {"Global", "Global", "LimitString", "3"},
      {"Global", "a", "LimitString", "4"},    {"main", "a", "ExcludeRoot", "5"}};
  AddRules(rules);
  Form2& site = EditSite(0);
  EXPECT_THAT(Rows(site.ListView1), ElementsAre("main|a|LimitString|1", "main|a|ExcludeRoot|5"));
  EXPECT_THAT(Rows(EditMain(0).ListView1), ElementsAre("main|Global|LimitString|2"));
  EXPECT_THAT(Rows(EditGlobal().ListView1), ElementsAre("Global|Global|LimitString|3"));

  Stage(Editor("Form2a"), 0, "x");
  Editor("Form2a").cmdSave.Click();
  Stage(Editor("Form2b"), 5, "y");
  Editor("Form2b").cmdSave.Click();
  // Both indexes are one: the Main Site's editor counts from 0, so the site's editor has no row now.
  Sites().CurrentEditIndex = 1;
  site.cmdSave.Click();
  EXPECT_THAT(Rows(Sites().lstRules),
              ElementsAre("Main|a|LimitString|case", "Global|a|LimitString|4", "main|Global|LimitString|2",
                          "main|Global|LimitDirectory|x", "Global|Global|LimitString|3",
                          "Global|Global|ExcludeRoot|y", "main|a|LimitString|1", "main|a|ExcludeRoot|5"));
  EXPECT_THAT(rig_.Form.Windows.ShownNames(), IsEmpty());
}

TEST_F(Editors, ALinkingSiteIsWrittenAsTypedAndItsOldRulesKeepTheOldUrl) {
  AddRules({{"main", "b", "LimitString", "old"}});
  Form2& editor = EditSite(1);
  EXPECT_EQ(editor.Text[0].Text(), "b");
  EXPECT_EQ(editor.Text[1].Text(), "1");
  editor.Text[0].UserSets("http://c|d");
  editor.Text[1].UserSets("many");
  editor.Text[2].UserSets(std::string(100'000, 'u'));
  editor.Text[4].UserSets("words");
  Stage(editor, 3, "new");
  editor.Text[4].UserPressesEnter();
  ASSERT_TRUE(IsOpen("Form2"));
  editor.Text[0].UserPressesEnter();
  EXPECT_FALSE(IsOpen("Form2"));
  const LinkingSite& site = Sites().List1(1).At(1);
  EXPECT_EQ(site.WebsiteUrl, "http://c|d");
  EXPECT_EQ(site.LinksExpected, "many");
  EXPECT_EQ(site.LinkPageUrl.size(), 100'000U);
  EXPECT_EQ(site.Description, "words");
  EXPECT_THAT(Rows(Sites().lstRules),
              ElementsAre("main|b|LimitString|old", "main|http://c|d|ExcludeString|new"));
  EXPECT_FALSE(Sites().ProjectSaved);
}

TEST_F(Editors, RulesAreRefusedWithoutAValueOrAType) {
  Form2& editor = EditSite(0);
  const auto& boxes = rig_.Services.Dialogs.Boxes;
  for (const auto& [value, told] : {std::pair{" ", "Please enter a rule to add."},
                                    {"  ", "Please select a rule type before adding a rule."}}) {
    editor.Text6.UserSets(value);
    editor.Text6.UserPressesEnter();
    EXPECT_EQ(boxes.back().Text, told) << "for " << std::string(value).size() << " blanks";
  }
  editor.Option1.Choose(1);
  editor.Text6.UserPressesEnter();
  EXPECT_EQ(editor.Text6.Text(), "");
  EXPECT_EQ(editor.Option1.Chosen(), 1);
  EXPECT_THAT(Rows(editor.ListView1), ElementsAre("main|a|ExcludeDirectory|  "));
  editor.Command2.Click();  // no row is selected
  EXPECT_EQ(editor.ListView1.RowCount(), 1U);
  editor.ListView1.SelectOnly(0);
  editor.Command2.Click();
  EXPECT_TRUE(editor.ListView1.Empty());
  editor.Command3.Click();
  EXPECT_TRUE(Sites().ProjectSaved);
  EXPECT_EQ(boxes.size(), 2U);
}

TEST_F(Editors, AMainSiteCalledGlobalIsNotToldFromTheGlobalScope) {
  AddRules({{"Global", "Global", "LimitString", "g"}, {"main", "Global", "LimitString", "m"}});
  Form2& editor = EditMain(0);
  editor.Text[0].UserSets("Global");
  editor.Text[0].UserPressesEnter();
  EXPECT_EQ(Sites().List4.At(0).Text, "Global");
  EXPECT_EQ(Rows(Sites().lstRules).back(), "main|Global|LimitString|m") << "rules keep the old text";
  EXPECT_THAT(Rows(EditMain(0).ListView1), ElementsAre("Global|Global|LimitString|g"));
}

TEST_F(Editors, AnOpenWindowIsNotFilledAgainAndSavesToTheRowThatIsChosenNow) {
  Form2& editor = EditSite(0);
  editor.Text[0].UserSets("edited");
  EXPECT_EQ(&EditSite(1), &editor);
  EXPECT_EQ(editor.Text[0].Text(), "edited");
  rig_.AddSites("second", {});  // another Main Site on show: new rules are its own
  Stage(editor, 0, "x");
  EXPECT_EQ(Rows(editor.ListView1).back(), "second|edited|LimitDirectory|x");
  Form1Rig::ClickRow(Sites().List4, 0);
  rig_.Form.cmdEdit.Click();  // a chosen row stays chosen
  editor.cmdSave.Click();
  EXPECT_EQ(Sites().List1(1).At(0).WebsiteUrl, "a");
  EXPECT_EQ(Sites().List1(1).At(1).WebsiteUrl, "edited");
}

TEST_F(Editors, ARowThatHasGoneFailsAtTheWriteAndKeepsTheWindow) {
  AddRules({{"main", "b", "LimitString", "x"}, {"", "b", "LimitString", "y"}});
  Form2& site = EditSite(1);
  Sites().List1(1).Remove(1);
  EXPECT_THROW(site.cmdSave.Click(), RuntimeFailure);
  EXPECT_EQ(Sites().lstRules.RowCount(), 2U);

  Form2& mainSite = EditMain(0);
  rig_.Form.cmdNew.Click();
  Stage(site, 0, "of nothing");
  EXPECT_EQ(Rows(site.ListView1).back(), "|b|LimitDirectory|of nothing");
  EXPECT_THROW(site.cmdSave.Click(), RuntimeFailure);
  EXPECT_THROW(mainSite.cmdSave.Click(), RuntimeFailure);
  EXPECT_TRUE(IsOpen("Form2"));
  rig_.Form.cmdEdit.Click();
  rig_.Form.cmdEditMain.Click();
  EXPECT_TRUE(Sites().lstRules.Empty());
  Form2& global = EditGlobal();
  Stage(global, 2, "z");
  global.cmdSave.Click();
  EXPECT_THAT(Rows(Sites().lstRules), ElementsAre("Global|Global|LimitString|z"));
}

}  // namespace
}  // namespace requite
