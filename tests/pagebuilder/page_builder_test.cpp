// SPDX-License-Identifier: MIT
// The generated link page: which rows get an entry, where its texts come from, and the saved file.
#include "pagebuilder/page_builder.h"

#include <gtest/gtest.h>

#include "shell/main_window/form1_rig.h"

namespace requite {
namespace {

class PageBuilderTest : public testing::Test, protected test::Form1Rig {
 protected:
  PageBuilderTest() {
    Form.Start();
    Form.chkNewWin.SetValue(0);
    project_.AddMainSite("one.example");
    project_.AddMainSite(" two.example ");
    project_.List1(1).Add({"a.example", "1", "", "", ""});
    project_.List1(1).Add({"a.example", "1", "https://a.example/x", "", " "});
    project_.List1(1).Add({"a.example", "1", "later", "A & <b>\"a\"</b>", "first"});
    project_.List1(1).Add({"www.b.example", "1", "http://b.example/x", "B", "b"});
    project_.List1(2).Add({"a.example", "1", "HTTP://two/", "", "  "});
  }

  void Result(const std::string& main, const std::string& linking, const std::string& status) {
    project_.List3.Add({main, linking, status, "001", linking});
  }

  /// The hosts (or the texts) that the generated links show, in order.
  std::string Generated() {
    Form.Command5.Click();
    std::string shown;
    std::string_view rest = project_.txtHTML2.Text();
    for (std::size_t at = rest.find("\">"); at != std::string_view::npos; at = rest.find("\">")) {
      rest.remove_prefix(at + 2);
      shown += std::string(rest.substr(0, rest.find("</a>"))) + ";";
    }
    return shown;
  }

  Project& project_ = Form.Sites;
};

TEST_F(PageBuilderTest, AnEntryIsBuiltFromTheFirstFieldsThatHoldSomething) {
  Result("one.example", "a.example", "Direct Link");
  Result("two.example", "a.example", "Redirect Link");
  Result("gone.example", "www.b.example", "Indirect Link");
  Form.Command5.Click();
  // A description of one blank counts as empty, but the next row is not asked: the blank is a value.
  EXPECT_EQ(project_.txtHTML2.Text(),
            "<a href=\"http://https://a.example/x\">A & <b>\"a\"</b></a><br><br>\r\n"
            "<a href=\"HTTP://two/\">a.example</a><BR>  <br><br>\r\n"
            "<a href=\"http://b.example/x\">B</a><BR>b<br><br>\r\n");
  Form.chkNewWin.SetValue(1);
  Form.chkBullet.SetValue(1);
  project_.List3.Clear();
  Result("one.example", "www.c.example/x", "DIRECT");
  Form.Command5.Click();
  const std::string whole =
      "<li><a href=\"http://c.example\" target=\"_blank\">c.example</a></li><br><br>\r\n";
  EXPECT_EQ(project_.txtHTML2.Text(), whole);
  EXPECT_EQ(Setting("txtHTML2"), whole) << "a generated text is a change";
  Form.chkNewWin.SetValue(2);
  Form.chkBullet.SetValue(2);  // grey is off
  Form.Command5.Click();
  EXPECT_EQ(project_.txtHTML2.Text(), "<a href=\"http://c.example\">c.example</a><br><br>\r\n");
}

TEST_F(PageBuilderTest, OnlyWordsWithDirectInThemCountAndRepeatsStay) {
  for (const char* status : {"Domain Link", "Missing 001", "None Found", ""})
    Result("one.example", "x", status);
  project_.txtHTML2.SetText("edited");
  EXPECT_EQ(Generated(), "");
  EXPECT_EQ(project_.txtHTML2.Text(), "");
  for (int n = 0; n < 3; ++n) Result("one.example", "c.example", "Direct Link");
  EXPECT_EQ(Generated(), "c.example;c.example;c.example;");
}

TEST_F(PageBuilderTest, AMainSiteThatIsTheHostOfAnEarlierEntryIsPassedOver) {
  Result("", "first", "Direct Link");  // nothing has been used yet, so the empty text is still free
  Result("", "x", "Direct Link");
  Result("one.example", "two.example", "Direct Link");
  Result("two.example", "x", "Direct Link");
  Result("Two.example", "y", "Direct Link");
  Result("one.example", "none.example", "None Found");
  Result("none.example", "z", "Direct Link");
  EXPECT_EQ(Generated(), "first;two.example;y;z;");
}

TEST_F(PageBuilderTest, OneMainSiteIsChosenByItsExactText) {
  Result("one.example", "c", "Direct Link");
  Result("One.example", "d", "Direct Link");
  Result("Select", "e", "Direct Link");
  Form.optAll.Choose(1);
  EXPECT_EQ(Generated(), "e;");
  Form.Combo3.UserSets("one.example");
  EXPECT_EQ(Generated(), "c;");
  Form.Combo3.UserSets("nowhere");
  EXPECT_EQ(Generated(), "");
}

TEST_F(PageBuilderTest, ThePageIsSavedOverAnOldOneWithoutAQuestion) {
  project_.txtHTML1.SetText("<top>");
  project_.txtHTML2.SetText("<links>");
  project_.txtHTML3.SetText("\xE9");
  const std::string name = Folder.File("page");
  WriteFile(name, "an old page that is longer than the new one");
  Services.Dialogs.Names = {name, ""};
  Form.Command6.Click();
  EXPECT_EQ(ReadFile(name), "<top>\r\n\r\n<links>\r\n\r\n\xE9\r\n");
  Form.Command6.Click();
  EXPECT_TRUE(Services.Dialogs.Boxes.empty());
  ASSERT_EQ(Services.Dialogs.FileDialogs.size(), 2U);
  EXPECT_EQ(Services.Dialogs.FileDialogs[0].Folder, Folder.Folder.Path);
  EXPECT_EQ(Services.Dialogs.FileDialogs[0].Filter,
            "Web Files (*.htm, *.html, *.asp, *.php, *.txt)|*.htm;*.asp;*.php;*.html");
  Services.Dialogs.Names = {Folder.File("no such folder/page")};
  EXPECT_THROW(Form.Command6.Click(), RuntimeFailure);
}

}  // namespace
}  // namespace requite
