// SPDX-License-Identifier: MIT
// The site lists edited as the user edits them: messages, enabled states, flags, and what rules go along.
#include "editing/site_editing.h"

#include <gmock/gmock.h>

#include "editing/site_rig.h"
#include "model/settings.h"

namespace requite::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SiteEditingTest : public testing::Test, protected SiteRig {
 protected:
  void AddSites(int mainSites, const std::vector<std::string>& linkingSites) {
    for (int k = 1; k <= mainSites; ++k) {
      EnterMainSite("main" + std::to_string(k) + ".example");
      for (const std::string& url : linkingSites) EnterLinkingSite(url);
    }
    Data.ProjectSaved = true;
  }
};

TEST_F(SiteEditingTest, NothingCanBeAddedOrChangedBeforeThereIsSomething) {
  for (const Control* each : std::initializer_list<const Control*>{
           &Controls.cmdAdd2, &Controls.cmdDelete, &Controls.cmdEditMain, &Controls.Text1, &Controls.cmdAdd,
           &Controls.cmbDel, &Controls.cmdEdit}) {
    EXPECT_FALSE(each->EnabledInEffect()) << each->Name();
    EXPECT_FALSE(each->Enabled()) << each->Name() << " would be enabled with its frame";
  }
  EXPECT_FALSE(Controls.Text1.VisibleInEffect());
}

TEST_F(SiteEditingTest, ASelectedMainSiteShowsItsListAlone) {
  AddSites(3, {"a.example"});
  ClickLinkingSite(3, 0);
  Controls.Text1.UserTypes("half");
  EXPECT_TRUE(Controls.cmdAdd.Enabled());
  Data.List4.SelectOnly(1);
  Data.List4.OnItemClick(1);
  EXPECT_EQ(Data.CurrentMainSite, 2);
  for (int k = 1; k <= 3; ++k) {
    EXPECT_EQ(Data.List1(k).Visible(), k == 2) << k;
    EXPECT_EQ(Data.List1(k).Enabled(), k == 2) << k;
  }
  EXPECT_TRUE(Controls.innerFrame2.Visible());
  EXPECT_EQ(Controls.lblblah.Text(), "Enter linking sites: main2.example");
  EXPECT_EQ(Controls.Text1.Text(), "");
  EXPECT_FALSE(Controls.cmdAdd.Enabled() || Controls.cmbDel.Enabled() || Controls.cmdEdit.Enabled());
}

TEST_F(SiteEditingTest, ALinkingSiteIsAddedTrimmedAndWithoutItsScheme) {
  AddSites(1, {});
  const ViewProbe focus(Controls.Text1);
  EnterLinkingSite("  HTTP://www.a.example/x  ");
  EnterLinkingSite("https://a.example/?u=http://b.example");
  EnterLinkingSite("www.a.example/x");
  EXPECT_THAT(Rows(Data.List1(1)),
              ElementsAre("www.a.example/x|1|||", "a.example/?u=b.example|1|||", "www.a.example/x|1|||"));
  EXPECT_EQ(Controls.Text1.Text(), "");
  EXPECT_FALSE(Controls.cmdAdd.Enabled());
  EXPECT_FALSE(Data.ProjectSaved);
  EXPECT_EQ(focus.Focuses, 3);
}

TEST_F(SiteEditingTest, AnEntryOfNothingButASchemeIsRefused) {
  AddSites(1, {});
  const ViewProbe focus(Controls.Text1);
  for (const char* entry : {"http://", "", "https:// ", "Http://hTTps://"}) {
    Services.Dialogs.Boxes.clear();
    EnterLinkingSite(entry);
    EXPECT_EQ(LastMessage(), "Please enter the Website URL first.") << entry;
  }
  EXPECT_EQ(Controls.Text1.Text(), "");
  EXPECT_EQ(focus.Focuses, 4);
  EXPECT_TRUE(Data.ProjectSaved);
  Controls.Text1.UserSets(" ");
  Controls.cmdAdd.Click();
  EXPECT_EQ(Controls.Text1.Text(), " ") << "a blank stays in the box";
  EXPECT_THAT(Rows(Data.List1(1)), IsEmpty());
  EnterLinkingSite("  ");
  EXPECT_THAT(Rows(Data.List1(1)), ElementsAre("|1|||")) << "two blanks are an entry";
}

TEST_F(SiteEditingTest, WithoutACurrentMainSiteAnAddPassesOverTheListAndOffersNoSkip) {
  Scanning = true;
  for (const std::int16_t number : {std::int16_t{0}, std::int16_t{5}}) {
    Data.CurrentMainSite = number;
    Data.ProjectSaved = true;
    Controls.cmdNextSearch.SetEnabled(true);
    EnterLinkingSite("a.example");
    EXPECT_FALSE(Controls.cmdNextSearch.Enabled());
    EXPECT_EQ(Data.List1(0).RowCount(), 0U);
    EXPECT_EQ(Controls.Text1.Text(), "");
    EXPECT_FALSE(Data.ProjectSaved);
  }
}

TEST_F(SiteEditingTest, SkipIsOfferedWhileAScanHasAnotherSite) {
  AddSites(1, {});
  EnterLinkingSite("a.example");
  EnterLinkingSite("b.example");
  EXPECT_FALSE(Controls.cmdNextSearch.Enabled());
  Scanning = true;
  EnterLinkingSite("c.example");
  EXPECT_TRUE(Controls.cmdNextSearch.Enabled());
  for (int row : {2, 1}) {
    ClickLinkingSite(1, row);
    Controls.cmbDel.Click();
  }
  EXPECT_FALSE(Controls.cmdNextSearch.Enabled());
}

TEST_F(SiteEditingTest, AMainSiteIsAddedAsTypedAndSelected) {
  EnterMainSite(" ");
  EXPECT_EQ(Controls.StatusBar1.Panel(1), "Error: Please enter a Remote Site first!");
  EXPECT_EQ(Controls.txtDomain.Text(), " ");
  EXPECT_THAT(Rows(Data.List4), IsEmpty());
  Controls.txtDomain.UserSets(" http://Main.example ");
  EXPECT_TRUE(Controls.cmdAdd2.Enabled());
  Controls.cmdAdd2.Click();
  EXPECT_THAT(Rows(Data.List4), ElementsAre(" http://Main.example "));
  EXPECT_EQ(Data.CurrentMainSite, 1);
  EXPECT_TRUE(Data.List1(1).Visible());
  EXPECT_EQ(Controls.txtDomain.Text(), "");
  EXPECT_TRUE(Controls.cmdAdd2.Enabled()) << "once enabled it stays so";
  EXPECT_FALSE(Data.ProjectSaved);
}

TEST_F(SiteEditingTest, OnlyTheFirstLinkingSiteTakesItsRulesAlong) {
  AddSites(2, {"a.example", "b.example"});
  for (const char* remote : {"a.example", "A.example", "b.example", "Global", "a.example"}) {
    Data.lstRules.Add({"main2.example", remote, "LimitString", "x"});
  }
  Data.lstRules.Add({"elsewhere", "a.example", "LimitString", "y"});
  ClickLinkingSite(1, 1);
  Controls.cmbDel.Click();
  EXPECT_EQ(Data.lstRules.RowCount(), 6U);
  EXPECT_FALSE(Data.ProjectSaved);
  Data.ProjectSaved = true;
  ClickLinkingSite(1, 0);
  Controls.cmbDel.Click();
  EXPECT_FALSE(Data.ProjectSaved);
  EXPECT_THAT(Rows(Data.List1(1)), IsEmpty());
  EXPECT_THAT(Rows(Data.lstRules),
              ElementsAre("main2.example|A.example|LimitString|x", "main2.example|b.example|LimitString|x",
                          "main2.example|Global|LimitString|x"));
  EXPECT_EQ(Data.List1(2).RowCount(), 2U);
}

TEST_F(SiteEditingTest, DuringAScanOnlyTheFirstLinkingSiteIsGuarded) {
  AddSites(1, {"a.example", "b.example", "c.example"});
  Data.lstRules.Add({"Global", "b.example", "LimitString", "x"});
  Scanning = true;
  ClickLinkingSite(1, 0);
  Controls.cmbDel.Click();
  EXPECT_EQ(LastMessage(), "You cannot delete the current site while the search is running.");
  EXPECT_EQ(Data.List1(1).RowCount(), 3U);
  EXPECT_TRUE(Data.ProjectSaved);
  EXPECT_TRUE(Controls.cmdNextSearch.Enabled());
  ClickLinkingSite(1, 1);
  Controls.cmbDel.Click();
  EXPECT_THAT(Rows(Data.List1(1)), ElementsAre("a.example|1|||", "c.example|1|||"));
  EXPECT_EQ(Data.lstRules.RowCount(), 1U);
}

TEST_F(SiteEditingTest, ANewProjectIsEmptyButForItsDefaults) {
  AddSites(2, {"a.example"});
  Lists.List2.Add({"queued"});
  Lists.lstErr.Add({"Timeout", "a.example"});
  Data.List3.Add({});
  Data.lstRules.Add({});
  Data.lstMulti.Add({});
  for (TextBox* box : std::initializer_list<TextBox*>{&Data.txtPost, &Controls.txtPost2, &Controls.Text1,
                                                      &Controls.txtDomain})
    box->UserSets("x");
  Controls.cmbSites.AddItem("main1.example");
  Data.ProjectSaved = Data.JustLoaded = true;
  Sites.NewProject();
  EXPECT_EQ(Data.ListCount(), 0);
  EXPECT_EQ(Data.CurrentMainSite, 1);
  for (const ListView* list : std::initializer_list<const ListView*>{&Lists.List2, &Data.List4, &Data.List3,
                                                                     &Data.lstRules, &Data.lstMulti}) {
    EXPECT_EQ(list->RowCount(), 0U) << list->Name();
  }
  EXPECT_EQ(Lists.lstErr.RowCount(), 1U);
  EXPECT_EQ(Data.txtPost.Text(), "http://");
  EXPECT_EQ(Controls.txtPost2.Text(), "http://");
  EXPECT_THAT(Controls.cmbSites.Items(), IsEmpty());
  EXPECT_EQ(Controls.cmbSites.Text() + Controls.Text1.Text() + Controls.txtDomain.Text(), "");
  EXPECT_FALSE(Controls.cmdAdd.Enabled());
  EXPECT_EQ(Data.txtHTML1.Text(), setting::txtHTML1.Default);
  EXPECT_NE(Data.txtHTML2.Text(), setting::txtHTML2.Default) << "they differ by one word";
  EXPECT_EQ(Data.txtHTML3.Text(), setting::txtHTML3.Default);
  EXPECT_FALSE(Controls.innerFrame2.Visible());
  EXPECT_TRUE(Data.ProjectSaved && Data.JustLoaded);
}

}  // namespace
}  // namespace requite::test
