// SPDX-License-Identifier: MIT
// Posting: what is sent for each row, what the log and the help boxes say, and how the two kinds differ.
#include "posting/posting.h"

#include <gtest/gtest.h>

#include <chrono>

#include "posting/url_encode.h"
#include "shell/imports/form4.h"
#include "shell/main_window/form1_rig.h"

namespace requite {
namespace {

using List = std::vector<std::string>;

class PostingTest : public testing::Test, protected test::Form1Rig {
 protected:
  PostingTest() { Form.Start(); }

  void AddResults() {
    list3_.Add({"main.example", "a.example", "Direct Link", "001", "http://a.example/a b?x=1&y"});
    list3_.Add({"main.example", "b.example", "Missing 002", "000", "b.example"});
    list3_.Add({"main.example", "c.example", "Domain Link", "001", "https://c.example"});
    list3_.Add({"two.example", "Direct Link", "none found: INDIRECT", "000", "d.example"});
  }

  void Post(const std::string& script) {
    txtPost_.SetText(script);
    Form.cmdPost.Click();
  }
  Form4& OpenImport() {
    Form.cmdImport.Click();
    return static_cast<Form4&>(*Form.Windows.Find("Form4"));
  }
  [[nodiscard]] const List& Asked() const { return Services.Internet.Asked; }
  [[nodiscard]] std::string Log() { return Form.PostedLog.Text4().Text(); }

  RecordList<LinkResult>& list3_ = Form.Sites.List3;
  RecordList<ScriptUrlEntry>& lstMulti_ = Form.Sites.lstMulti;
  TextBox& txtPost_ = Form.Sites.txtPost;
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
  Post("s.example/?m=$MAINSITE&l=$linkingsite&f=$FoundOn&b=$Status&&m=$MainSite");
  EXPECT_EQ(Asked(),
            (List{"s.example/?m=main.example&l=a.example&f=http://a.example%2Fa+b%3Fx%3D1%26y"
                  "&b=True&&m=main.example",
                  "http://s.example/?m=main.example&l=c.example&f=https%3A%2F%2Fc.example"
                  "&b=False&&m=main.example",
                  "http://s.example/?m=two.example&l=Direct+Link&f=d.example&b=True&&m=two.example"}));
  EXPECT_EQ(Form.StatusBar1.Panel(1), "Sending Site 4: Direct+Link");
  EXPECT_EQ(Services.Internet.Agent, "Mozilla");
  EXPECT_TRUE(Form.Windows.IsShown("Form5"));
  Form.cmdPost.Click();
  EXPECT_EQ(Asked().size(), 6U) << "no row is remembered as posted";
}

TEST_F(PostingTest, ASecureScriptIsReachedUnderTheVisitorsNameAndLoggedAsEver) {
  list3_.Add({"main.example", "a.example", "Direct Link", "001", "a.example"});
  Services.Store.Set("txtUserAgent", "Visitor");
  for (const char* secure : {"0", "1"}) {
    Services.Store.Set("chkSecure", secure);
    Post("https://s.example/?b=$Status");
  }
  EXPECT_EQ(Asked(), (List{"http://https://s.example/?b=True", "https://s.example/?b=True"}));
  EXPECT_EQ(Services.Internet.Agent, "Visitor");
  const std::string logged = "\r\nURL: http://https://s.example/?b=True\r\n";
  EXPECT_EQ(Log(), logged + logged);
}

TEST_F(PostingTest, TheLogEndsAtTheFirstByteOfZeroAndGoesOnFromThere) {
  AddResults();
  txtPost_.SetText("$Status");
  Services.Internet.Bodies = {{"http://True", "short"}, {"http://False", std::string(300, 'x')}};
  Form.cmdPost.Click();
  EXPECT_EQ(static_cast<Form5&>(Form.Windows.Load("Form5")).lblAnswers.Text(), "3 of 3 requests answered");
  EXPECT_EQ(Log(),
            "\r\nURL: http://True\r\n\r\nReturned: short"  // its line end is lost
            "\r\nURL: http://False\r\n\r\nReturned: " +
                std::string(300, 'x') +
                "\r\n"
                "\r\nURL: http://True\r\n\r\nReturned: short");
  list3_.Clear();
  list3_.Add({"m", "a", "Direct Link", "001", "a"});
  Form.PostedLog.Text4().SetText("");
  Services.Internet.Bodies["http://True"] = "";
  Form.cmdPost.Click();
  EXPECT_EQ(Log(), "\r\nURL: http://True\r\n\r\nReturned: ") << "an empty answer is an answer";
}

TEST_F(PostingTest, TheLogOfManyRowsGrowsInLinearTime) {
  Services.Internet.Bodies = {{"http://s", std::string(300, 'x')}};
  txtPost_.SetText("s");
  for (int row = 0; row < 20000; ++row) list3_.Add({"m", "a", "Direct Link", "001", "a"});
  const auto begin = std::chrono::steady_clock::now();
  Form.cmdPost.Click();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  EXPECT_EQ(Log().size(),
            20000 * std::string("\r\nURL: http://s\r\n\r\nReturned: \r\n").size() + 20000 * 300);
}

TEST_F(PostingTest, WithoutResultsOrAnAnswerTheRunEndsQuietly) {
  Form.cmdPost.Click();
  EXPECT_TRUE(Form.Windows.IsShown("Form5"));
  EXPECT_EQ(Form.StatusBar1.Panel(1), "You must perform a scan for reciprocal links first");
  list3_.Add({"m", "a", "None Found", "000", "a"});
  for (const char* script : {"http://", "", "two words", "https://s.example/$Status"}) {
    Post(script);
  }
  EXPECT_EQ(Asked(), (List{"http://", "http://", "http://two words", "http://https://s.example/False"}));
  EXPECT_EQ(Log(),
            "\r\nURL: http://\r\n\r\nURL: http://\r\n\r\nURL: http://two words\r\n"
            "\r\nURL: http://https://s.example/False\r\n");
}

TEST_F(PostingTest, AScriptForEachMainSiteIsTheFirstWithItsTrimmedText) {
  AddResults();
  list3_.Add({"Main.example", "e.example", "Direct Link", "001", "e.example"});
  lstMulti_.Add({"two.example", " "});
  lstMulti_.Add({" main.example ", "one.example/$LinkingSite"});
  lstMulti_.Add({"main.example", "never.example"});
  Form.optScript.Choose(1);
  Form.cmdPost.Click();
  EXPECT_EQ(Asked(), (List{"http://one.example/a.example", "http://one.example/c.example"}));
}

TEST_F(PostingTest, RowsAreReadAnewAfterEventsRan) {
  AddResults();
  txtPost_.SetText("$LinkingSite");
  Services.Internet.OnOpen = [this] {
    if (Asked().size() == 1) {
      Post("changed/$LinkingSite");  // a second walk inside the first
      list3_.Remove(0);
    }
  };
  Form.cmdPost.Click();
  EXPECT_EQ(Asked(),
            (List{"http://a.example", "http://changed/a.example", "http://changed/c.example",
                  "http://changed/Direct+Link", "http://changed/c.example", "http://changed/Direct+Link"}));
  Services.Internet.OnOpen = [this] { list3_.Clear(); };
  Form.cmdPost.Click();
  EXPECT_EQ(Asked().size(), 7U);
}

TEST_F(PostingTest, TheEndOfTheProgramAndAStopEndEveryWalk) {
  AddResults();
  Services.Internet.OnOpen = [this] { Form.Post.Stop(); };
  Form.cmdPost.Click();
  EXPECT_EQ(Services.Internet.EndedWaits, 1);
  EXPECT_EQ(Log(), "");
  Services.Internet.OnOpen = [this] { Form.Close(); };
  Form.cmdPost.Click();
  EXPECT_EQ(Asked().size(), 2U);
}

TEST_F(PostingTest, ImportWindowsPostTheirOwnUrlWithoutTheMainSite) {
  AddResults();
  Form4& window = OpenImport();
  window.optScript.Choose(1);
  window.txtPost.SetText("s.example/$MainSite/$LinkingSite/$foundon/$Status");
  Services.Internet.OnOpen = [&] { window.txtPost.SetText("later"); };  // read once, before the first row
  window.cmdPost.Click();
  EXPECT_EQ(Asked(), (List{"s.example/$MainSite/a.example/http://a.example%2Fa+b%3Fx%3D1%26y/True",
                           "http://s.example/$MainSite/c.example/https%3A%2F%2Fc.example/False",
                           "http://s.example/$MainSite/Direct+Link/d.example/True"}));
  EXPECT_FALSE(Form.Windows.IsShown("Form5"));
  EXPECT_NE(Log(), "");
  window.txtPost.SetText("");
  Services.Internet.OnOpen = nullptr;
  window.cmdPost.Click();
  EXPECT_EQ(Asked().back(), "http://");
}

TEST_F(PostingTest, ScriptUrlsAreAddedAndDeleted) {
  const auto enabled = [this] {
    std::string names;
    const Control* const all[] = {&txtPost_,          &lstMulti_,     &Form.cmdScriptAdd,
                                  &Form.cmdScriptDel, &Form.cmbSites, &Form.txtPost2};
    for (const Control* each : all) names += each->Enabled() ? each->Name() + " " : "";
    return names;
  };
  EXPECT_EQ(enabled(), "txtPost ");
  Form.optScript.Choose(1);
  EXPECT_EQ(enabled(), "lstMulti cmdScriptAdd cmbSites txtPost2 ");
  EXPECT_EQ(Services.Store.Read("optScript"), "1");
  Form.txtPost2.SetText("http://s.example");
  Form.cmdScriptAdd.Click();
  Form.cmbSites.SetText("");
  Form.cmdScriptAdd.Click();
  EXPECT_TRUE(lstMulti_.Empty());
  for (const char* site : {"Global", "select", " "}) {
    Form.cmbSites.SetText(site);
    Form.cmbSites.UserPressesEnter();
  }
  Form.txtPost2.UserPressesEnter();
  ASSERT_EQ(lstMulti_.RowCount(), 4U);
  EXPECT_EQ(lstMulti_.At(0).ScriptUrl, "http://s.example");
  Form.cmdScriptDel.Click();  // nothing is selected
  lstMulti_.SelectOnly(1);
  lstMulti_.OnItemClick(1);
  EXPECT_TRUE(Form.cmdScriptDel.Enabled());
  Form.cmdScriptDel.Click();
  ASSERT_EQ(lstMulti_.RowCount(), 3U);
  EXPECT_EQ(lstMulti_.At(1).MainSite, " ");

  Form4& window = OpenImport();
  window.cmdScriptAdd.Click();
  EXPECT_EQ(window.lstMulti.At(0).MainSite, "Select");
}

TEST_F(PostingTest, TheImportWindowsExampleLeavesTheMainSite) {
  Form4& window = OpenImport();
  window.txtPost.SetText("http://s.example/?$status&$MainSite");
  window.cmdExample.Click();
  EXPECT_NE(Services.Dialogs.Boxes.back().Text.find("http://s.example/?$status&$MainSite\r\nwould become\r\n"
                                                    "http://s.example/?True&main-site.example\r\nAfter"),
            std::string::npos);
}

TEST_F(PostingTest, TheLogStaysUntilItsWindowIsClosed) {
  for (const char* host : {"a", "b", "c"}) list3_.Add({"m", host, "Direct Link", "001", host});
  Post("http://s/$LinkingSite");
  Services.Internet.OnOpen = [this] {
    if (Asked().size() == 5) Form.Windows.Close("Form5");
  };
  Form.cmdPost.Click();
  // Loaded again by the next line, unseen.
  EXPECT_FALSE(Form.Windows.IsShown("Form5"));
  EXPECT_EQ(Log(), "\r\nURL: http://s/b\r\n\r\nURL: http://s/c\r\n");
}

}  // namespace
}  // namespace requite
