// SPDX-License-Identifier: MIT
// Posting from the main window: its log window comes, may go in the middle of a run, and ends with the
// program.
#include <gtest/gtest.h>

#include "shell/form1_rig.h"

namespace requite {
namespace {

class Form1Posting : public testing::Test {
 protected:
  Form1Posting() {
    rig_.Form.Start();
    for (const char* host : {"a.example", "b.example", "c.example"}) {
      rig_.Form.Sites.List3.Add({"main.example", host, "Direct Link", "001", host});
    }
    rig_.Form.Sites.txtPost.UserSets("http://s.example/$LinkingSite");
  }

  [[nodiscard]] std::string Log() { return rig_.Form.PostedLog.Text4().Text(); }

  test::Form1Rig rig_;
};

TEST_F(Form1Posting, TheLogStaysUntilItsWindowIsClosed) {
  rig_.Form.cmdPost.Click();
  EXPECT_TRUE(rig_.Form.Windows.IsShown("Form5"));
  EXPECT_EQ(Log(),
            "\r\nURL: http://s.example/a.example\r\n\r\nURL: http://s.example/b.example\r\n"
            "\r\nURL: http://s.example/c.example\r\n");
  rig_.Services.Internet.OnOpen = [this] {
    if (rig_.Services.Internet.Asked.size() == 5) rig_.Form.Windows.Close("Form5");
  };
  rig_.Form.cmdPost.Click();
  // Loaded again by the next line, unseen.
  EXPECT_FALSE(rig_.Form.Windows.IsShown("Form5"));
  EXPECT_EQ(Log(), "\r\nURL: http://s.example/b.example\r\n\r\nURL: http://s.example/c.example\r\n");
}

TEST_F(Form1Posting, PagesAreBuiltAndSavedByTheirButtons) {
  rig_.Form.Command5.Click();
  EXPECT_EQ(rig_.Setting("txtHTML2"), rig_.Form.Sites.txtHTML2.Text()) << "a generated text is a change";
  EXPECT_NE(rig_.Setting("txtHTML2").find("http://c.example"), std::string::npos);
  rig_.Services.Dialogs.Names = {rig_.Folder.File("p.htm")};
  rig_.Form.Command6.Click();
  EXPECT_EQ(ReadFile(rig_.Folder.File("p.htm")), rig_.Form.Pages.WebPage());
}

}  // namespace
}  // namespace requite
