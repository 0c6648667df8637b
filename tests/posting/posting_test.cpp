// SPDX-License-Identifier: MIT
// Posting: what goes out for each row, what the log and the help boxes say, and how the two kinds differ.
#include "posting/posting.h"

#include <gtest/gtest.h>

#include <chrono>

#include "posting/url_encode.h"
#include "support/fakes.h"

namespace requite {
namespace {

using List = std::vector<std::string>;

struct FakeLog : PostLog {
  void ShowForm5() override { ++Shown; }
  TextBox& Text4() override { return Box; }

  TextBox Box{"Text4"};
  int Shown = 0;
};

class PostingTest : public testing::Test {
 protected:
  PostingTest() {
    main_.Wire();
    optScript_.Choose(0);
  }

  void AddResults() {
    list3_.Add({"main.example", "a.example", "Direct Link", "001", "http://a.example/a b?x=1&y"});
    list3_.Add({"main.example", "b.example", "Missing 002", "000", "b.example"});
    list3_.Add({"main.example", "c.example", "Domain Link", "001", "https://c.example"});
    list3_.Add({"two.example", "Direct Link", "none found: INDIRECT", "000", "d.example"});
  }

  [[nodiscard]] const List& Asked() const { return services_.Internet.Asked; }
  [[nodiscard]] const test::ScriptedDialogs& Boxes() const { return services_.Dialogs; }

  test::FakeServices services_;
  RecordList<LinkResult> list3_{"List3"};
  RecordList<ScriptUrlEntry> lstMulti_{"lstMulti"};
  OptionGroup optScript_{"optScript", {"one", "each"}};
  TextBox txtPost_{"txtPost"};
  TextBox txtPost2_{"txtPost2"};
  ComboBox cmbSites_{"cmbSites", "Select"};
  Button cmdScriptAdd_{"cmdScriptAdd", "Add"};
  Button cmdScriptDel_{"cmdScriptDel", "Del"};
  Button cmdPost_{"cmdPost", "Post"};
  Button cmdVariables_{"cmdVariables", "V"};
  Button cmdExample_{"cmdExample", "E"};
  StatusBar StatusBar1_{"StatusBar1"};
  FakeLog log_;
  bool ended_ = false;
  PostingNeeds needs_{
      list3_, Settings(services_.Store), services_.Internet, services_.EventLoop, services_.Dialogs,
      log_,   [this] { return ended_; }};
  PostingTab tab_{optScript_,    txtPost_, lstMulti_,     cmbSites_,   txtPost2_,  cmdScriptAdd_,
                  cmdScriptDel_, cmdPost_, cmdVariables_, cmdExample_, StatusBar1_};
  MainPosting main_{needs_, tab_};
  int form4Shown_ = 0;
  ImportPosting import_{needs_, tab_, [this] { ++form4Shown_; }};
};

TEST(UrlEncodeValue, EncodesEveryByteButAFewAndKeepsTheScheme) {
  const struct {
    const char* Text;
    const char* Encoded;
  } cases[] = {{"", ""},
               {"aZ09.-_*", "aZ09.-_*"},
               {"a b+~", "a+b%2B%7E"},
               {"http://h.example/a b", "http://h.example%2Fa+b"},
               {"x?u=HTTP://h&v=http://i", "http://x%3Fu%3Dh%26v%3Di"},
               {"https://h", "https%3A%2F%2Fh"},
               {"\x80\xE9\n\t$%", "%80%E9%0A%09%24%25"}};
  for (const auto& each : cases) EXPECT_EQ(UrlEncodeValue(each.Text), each.Encoded) << each.Text;
  EXPECT_EQ(UrlEncodeValue(std::string(1, '\0')), "%00");
}

TEST_F(PostingTest, EachRowButMissingOnesGoesToTheOneUrl) {
  AddResults();
  txtPost_.SetText("s.example/?m=$MAINSITE&l=$linkingsite&f=$FoundOn&b=$Status&&m=$MainSite");
  cmdPost_.Click();
  EXPECT_EQ(Asked(),
            (List{"s.example/?m=main.example&l=a.example&f=http://a.example%2Fa+b%3Fx%3D1%26y"
                  "&b=True&&m=main.example",
                  "http://s.example/?m=main.example&l=c.example&f=https%3A%2F%2Fc.example"
                  "&b=False&&m=main.example",
                  "http://s.example/?m=two.example&l=Direct+Link&f=d.example&b=True&&m=two.example"}));
  EXPECT_EQ(StatusBar1_.Panel(1), "Sending Site 4: Direct+Link");
  EXPECT_EQ(services_.Internet.Agent, "Mozilla");
  EXPECT_EQ(log_.Shown, 1);
  cmdPost_.Click();
  EXPECT_EQ(Asked().size(), 6U) << "no row is remembered as posted";
}

TEST_F(PostingTest, TheLogEndsAtTheFirstByteOfZeroAndGoesOnFromThere) {
  AddResults();
  txtPost_.SetText("$Status");
  services_.Internet.Bodies = {{"http://True", "short"}, {"http://False", std::string(300, 'x')}};
  cmdPost_.Click();
  EXPECT_EQ(log_.Box.Text(),
            "\r\nURL: http://True\r\n\r\nReturned: short"  // its line end is lost
            "\r\nURL: http://False\r\n\r\nReturned: " +
                std::string(300, 'x') +
                "\r\n"
                "\r\nURL: http://True\r\n\r\nReturned: short");
  list3_.Clear();
  list3_.Add({"m", "a", "Direct Link", "001", "a"});
  log_.Box.SetText("");
  services_.Internet.Bodies["http://True"] = "";
  cmdPost_.Click();
  EXPECT_EQ(log_.Box.Text(), "\r\nURL: http://True\r\n\r\nReturned: ") << "an empty answer is an answer";
}

TEST_F(PostingTest, TheLogOfManyRowsGrowsInLinearTime) {
  services_.Internet.Bodies = {{"http://s", std::string(300, 'x')}};
  txtPost_.SetText("s");
  for (int row = 0; row < 20000; ++row) list3_.Add({"m", "a", "Direct Link", "001", "a"});
  const auto begin = std::chrono::steady_clock::now();
  cmdPost_.Click();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  EXPECT_EQ(log_.Box.Text().size(),
            20000 * std::string("\r\nURL: http://s\r\n\r\nReturned: \r\n").size() + 20000 * 300);
}

TEST_F(PostingTest, WithoutResultsOrAnAnswerTheRunEndsQuietly) {
  cmdPost_.Click();
  EXPECT_EQ(log_.Shown, 1);
  EXPECT_EQ(StatusBar1_.Panel(1), "You must perform a scan for reciprocal links first");
  list3_.Add({"m", "a", "None Found", "000", "a"});
  for (const char* script : {"http://", "", "two words", "https://s.example/$Status"}) {
    txtPost_.SetText(script);
    cmdPost_.Click();
  }
  EXPECT_EQ(Asked(), (List{"http://", "http://", "http://two words", "http://https://s.example/False"}));
  EXPECT_EQ(log_.Box.Text(),
            "\r\nURL: http://\r\n\r\nURL: http://\r\n\r\nURL: http://two words\r\n"
            "\r\nURL: http://https://s.example/False\r\n");
}

TEST_F(PostingTest, AScriptForEachMainSiteIsTheFirstWithItsTrimmedText) {
  AddResults();
  list3_.Add({"Main.example", "e.example", "Direct Link", "001", "e.example"});
  lstMulti_.Add({"two.example", " "});
  lstMulti_.Add({" main.example ", "one.example/$LinkingSite"});
  lstMulti_.Add({"main.example", "never.example"});
  optScript_.Choose(1);
  cmdPost_.Click();
  EXPECT_EQ(Asked(), (List{"http://one.example/a.example", "http://one.example/c.example"}));
}

TEST_F(PostingTest, RowsAreReadAnewAfterEventsRan) {
  AddResults();
  txtPost_.SetText("$LinkingSite");
  services_.Internet.OnOpen = [this] {
    if (Asked().size() == 1) {
      txtPost_.SetText("changed/$LinkingSite");
      cmdPost_.Click();  // a second walk inside the first
      list3_.Remove(0);
    }
  };
  cmdPost_.Click();
  EXPECT_EQ(Asked(),
            (List{"http://a.example", "http://changed/a.example", "http://changed/c.example",
                  "http://changed/Direct+Link", "http://changed/c.example", "http://changed/Direct+Link"}));
  services_.Internet.OnOpen = [this] { list3_.Clear(); };
  cmdPost_.Click();
  EXPECT_EQ(Asked().size(), 7U);
}

TEST_F(PostingTest, TheEndOfTheProgramAndAStopEndEveryWalk) {
  AddResults();
  services_.Internet.OnOpen = [this] { main_.Stop(); };
  cmdPost_.Click();
  EXPECT_EQ(services_.Internet.EndedWaits, 1);
  services_.Internet.OnOpen = [this] { ended_ = true; };
  cmdPost_.Click();
  EXPECT_EQ(Asked().size(), 2U);
  EXPECT_EQ(log_.Box.Text(), "");
}

TEST_F(PostingTest, ImportWindowsPostTheirOwnUrlWithoutTheMainSite) {
  AddResults();
  import_.Wire();
  optScript_.Choose(1);
  txtPost_.SetText("s.example/$MainSite/$LinkingSite/$foundon/$Status");
  services_.Internet.OnOpen = [this] { txtPost_.SetText("later"); };  // read once, before the first row
  cmdPost_.Click();
  EXPECT_EQ(Asked(), (List{"s.example/$MainSite/a.example/http://a.example%2Fa+b%3Fx%3D1%26y/True",
                           "http://s.example/$MainSite/c.example/https%3A%2F%2Fc.example/False",
                           "http://s.example/$MainSite/Direct+Link/d.example/True"}));
  EXPECT_EQ(form4Shown_, 1);
  EXPECT_EQ(log_.Shown, 0);
  EXPECT_NE(log_.Box.Text(), "");
  txtPost_.SetText("");
  services_.Internet.OnOpen = nullptr;
  cmdPost_.Click();
  EXPECT_EQ(Asked().back(), "http://");
}

TEST_F(PostingTest, ScriptUrlsAreAddedAndDeleted) {
  const auto enabled = [this] {
    std::string names;
    const Control* const all[] = {&txtPost_,      &lstMulti_, &cmdScriptAdd_,
                                  &cmdScriptDel_, &cmbSites_, &txtPost2_};
    for (const Control* each : all) names += each->Enabled() ? each->Name() + " " : "";
    return names;
  };
  EXPECT_EQ(enabled(), "txtPost ");
  optScript_.Choose(1);
  EXPECT_EQ(enabled(), "lstMulti cmdScriptAdd cmbSites txtPost2 ");
  EXPECT_EQ(services_.Store.Read("optScript"), "1");
  txtPost2_.SetText("http://s.example");
  cmdScriptAdd_.Click();
  cmbSites_.SetText("");
  cmdScriptAdd_.Click();
  EXPECT_TRUE(lstMulti_.Empty());
  for (const char* site : {"Global", "select", " "}) {
    cmbSites_.SetText(site);
    cmbSites_.UserPressesEnter();
  }
  txtPost2_.UserPressesEnter();
  ASSERT_EQ(lstMulti_.RowCount(), 4U);
  EXPECT_EQ(lstMulti_.At(0).ScriptUrl, "http://s.example");
  cmdScriptDel_.Click();  // nothing is selected
  lstMulti_.SelectOnly(1);
  lstMulti_.OnItemClick(1);
  EXPECT_TRUE(cmdScriptDel_.Enabled());
  cmdScriptDel_.Click();
  ASSERT_EQ(lstMulti_.RowCount(), 3U);
  EXPECT_EQ(lstMulti_.At(1).MainSite, " ");

  import_.Wire();
  cmbSites_.SetText("Select");
  cmdScriptAdd_.Click();
  EXPECT_EQ(lstMulti_.At(3).MainSite, "Select");
}

TEST_F(PostingTest, TheHelpOfTheMainWindowSpeaksInItsTitles) {
  cmdVariables_.Click();
  cmdExample_.Click();
  EXPECT_TRUE(Boxes().Boxes.at(0).Title.starts_with("URL Variables\r\n\r\nThese values will be URL Encoded"));
  EXPECT_TRUE(Boxes().Boxes.at(1).Title.starts_with("URL Example\r\n\r\nBy creating a script"));
  import_.Wire();
  cmdVariables_.Click();
  EXPECT_EQ(Boxes().Boxes.back().Text, Boxes().Boxes.at(0).Text);
  EXPECT_EQ(Boxes().Boxes.back().Title, "URL Variables");
  txtPost_.SetText("http://s.example/?$status&$MainSite");
  cmdExample_.Click();
  EXPECT_NE(Boxes().Boxes.back().Text.find("http://s.example/?$status&$MainSite\r\nwould become\r\n"
                                           "http://s.example/?True&main-site.example\r\nAfter"),
            std::string::npos);
}

}  // namespace
}  // namespace requite
