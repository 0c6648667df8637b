// SPDX-License-Identifier: MIT
// The import windows: what they show, what they add, and what happens in between.
#include "import/import_links.h"

#include <gmock/gmock.h>

#include "editing/site_rig.h"
#include "shell/imports/form4.h"
#include "shell/main_window/form1_rig.h"

namespace requite::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ImportRig : Form1Rig {
  ImportRig() { AddSites("main.example", {}); }

  Form4& Open(Button& command) {
    command.Click();
    return static_cast<Form4&>(*Form.Windows.Find(Form.Windows.ShownNames().back()));
  }
  std::vector<std::string> Links() const { return Rows(Window.ListView1); }
  std::vector<std::string> LinkingSites() const { return Rows(Form.Sites.List1(1)); }
  std::string Status() const { return Window.StatusBar1.Panel(1); }
  void Page(const std::string& html) {
    Window.Text1.UserSets("http://home.example/links.html");
    Services.Internet.Bodies["http://home.example/links.html"] = html;
  }
  /// A script's output, long enough not to be filled up.
  void Script(const std::string& text) {
    Window.Option1.Choose(1);
    Window.Text2.UserSets("http://home.example/list");
    Services.Internet.Bodies["http://home.example/list"] = text + std::string(300, '\n');
  }
  void File(const std::string& text) {
    WriteFile(Folder.File("sites.txt"), text);
    Services.Dialogs.Names.push_back(Folder.File("sites.txt"));
    Window.Command4.Click();
  }

  Form4& Window = Open(Form.cmdImport);
};

TEST(GetLinks, ShowsThePagesLinksAndOneEmptyRow) {
  ImportRig rig;
  rig.Page("<a href=\"http://a.example\"><a href=\"http://b.example/x,y\">" + std::string(300, ' '));
  std::vector<std::string> texts;
  rig.Services.EventLoop.OnEveryYield = [&] {
    if (texts.empty() || texts.back() != rig.Status()) texts.push_back(rig.Status());
  };
  rig.Window.Command1.Click();
  EXPECT_THAT(rig.Links(), ElementsAre("a.example/", "b.example/x", "y", ""));
  EXPECT_THAT(texts, ElementsAre("Conecting to http://home.example/links.html", "Extracted 1 link(s)",
                                 "Extracted 2 link(s)", "Added 0 link(s)", "Added 1 link(s)",
                                 "Added 2 link(s)", "Added 3 link(s)"));
  EXPECT_EQ(rig.Status(), "Finished Downloading - 4 links found.");

  rig.Page("<a href=\"http://home.example/a\">");  // short, and filled up with bytes of 0
  rig.Window.Command1.Click();
  EXPECT_THAT(rig.Links(), IsEmpty());
  EXPECT_EQ(rig.Status(), "Finished Downloading - 0 links found.");

  rig.Window.Text1.UserSets("gone.example");
  rig.Window.Command1.Click();
  EXPECT_EQ(rig.Services.Internet.Asked.back(), "http://gone.example");
  EXPECT_EQ(rig.Window.Text1.Text(), "gone.example");
  EXPECT_EQ(rig.Status(), "Finished Downloading - 0 links found.");
}

TEST(GetLinks, ReadsASecurePageAndItsSecureLinksWhenSecureConnectionsAreOn) {
  ImportRig rig;
  rig.Services.Store.Set("chkSecure", "1");
  rig.Window.Text1.UserSets("https://home.example/links.html");
  rig.Services.Internet.Bodies["https://home.example/links.html"] =
      "<a href=\"https://a.example/x\"><a href=\"https://home.example/y\">";
  rig.Window.Command1.Click();
  EXPECT_THAT(rig.Links(), ElementsAre("a.example/x", ""));
}

TEST(GetLinks, TakesAScriptsOutputApart) {
  ImportRig rig;
  rig.Script("a.example b.example,c.example");
  rig.Window.Command1.Click();
  ASSERT_EQ(rig.Services.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(rig.Services.Dialogs.Boxes[0].Text, "You must select a delimiter first");
  EXPECT_THAT(rig.Services.Internet.Asked, IsEmpty());

  rig.Window.Combo1.SetListIndex(0);
  rig.Window.Command1.Click();
  EXPECT_THAT(rig.Links(), ElementsAre("a.example", "b.example", "c.example" + std::string(300, '\n')));

  rig.Script("<p>a.example<br>XyB.example</p>xYc.example<br>\r\n,d.example,");
  rig.Window.Combo1.UserSets("xy");
  rig.Window.Command1.Click();
  EXPECT_THAT(rig.Links(),
              ElementsAre("a.example", "B.example", "c.example", "d.example", std::string(300, '\n')));
  EXPECT_EQ(rig.Setting("getURLCombo"), "-1");

  rig.Services.Internet.Bodies["http://home.example/list"] = "a.example,b.example";
  rig.Window.Command1.Click();
  EXPECT_THAT(rig.Links(), ElementsAre("a.example", "b.example")) << "shown up to the filling of 0 bytes";

  rig.Services.Internet.Bodies["http://home.example/list"] = "";
  rig.Window.Command1.Click();
  EXPECT_THAT(rig.Links(), ElementsAre(""));
  EXPECT_EQ(rig.Status(), "Finished Downloading - 1 links found.");
}

TEST(GetLinks, ASecondPressRunsInsideTheFirst) {
  ImportRig rig;
  rig.Page("<a href=\"http://a.example\"><a href=\"http://b.example\">" + std::string(300, ' '));
  rig.Services.EventLoop.OnEveryYield = [&] {
    if (rig.Status() != "Added 1 link(s)") return;
    rig.Services.EventLoop.OnEveryYield = nullptr;
    rig.Window.Command1.Click();
  };
  rig.Window.Command1.Click();
  EXPECT_THAT(rig.Links(), ElementsAre("a.example/", "b.example/", "", ""));
}

TEST(AddSelectedLinks, GoToTheMainSiteOnShow) {
  ImportRig rig;
  rig.Page("<a href=\"http://a.example\"><a href=\"http://b.example\"><a href=\"http://a.example\">" +
           std::string(300, ' '));
  rig.Window.Command1.Click();
  rig.Form.Sites.ProjectSaved = true;
  rig.Window.ListView1.SelectOnly(1);
  rig.Window.cmdAdd.Click();
  EXPECT_THAT(rig.LinkingSites(), ElementsAre("b.example/|1|||"));
  rig.Window.ListView1.OnRightButtonUp(-1);
  rig.Window.cmdAdd.Click();
  EXPECT_THAT(rig.LinkingSites(),
              ElementsAre("b.example/|1|||", "a.example/|1|||", "b.example/|1|||", "a.example/|1|||"));
  EXPECT_TRUE(rig.Form.Sites.ProjectSaved);
  EXPECT_EQ(rig.Window.ListView1.RowCount(), 4U);

  rig.Form.Sites.List1(1).SetSort({true, 0, 0});
  rig.Form.Sites.List1(1).Set(3, &LinkingSite::LinksExpected, "7");
  rig.Window.ListView1.SelectOnly(0);
  rig.Window.cmdAdd.Click();
  EXPECT_THAT(rig.LinkingSites(), ElementsAre("a.example/|1|||", "a.example/|1|||", "a.example/||||",
                                              "b.example/|1|||", "b.example/|1|||"))
      << "in a sorted list the last row is another one";
  rig.Form.Sites.CurrentMainSite = 2;
  rig.Window.cmdAdd.Click();
  EXPECT_EQ(rig.Form.Sites.List1(1).RowCount(), 5U);
}

TEST(ImportFromFile, LinesBecomeLinkingSites) {
  ImportRig rig;
  rig.File(" a.example \n\nb.example| 3|x\r\n \rc.example\r|\n\x01\x80\xff");
  EXPECT_THAT(rig.LinkingSites(), ElementsAre("a.example|1|||", "b.example| 3|||", "c.example|1|||", "||||",
                                              "\x01\x80\xff|1|||"));
  EXPECT_EQ(rig.Status(), "Added 5 link(s)");
  ASSERT_EQ(rig.Services.Dialogs.FileDialogs.size(), 1U);
  EXPECT_EQ(rig.Services.Dialogs.FileDialogs[0].Folder, rig.Folder.File("Project Files"));
  EXPECT_EQ(rig.Services.Dialogs.FileDialogs[0].Filter, "Text Files (*.txt)|*.txt");

  rig.Services.Dialogs.Names.push_back(rig.Folder.File("sites.txt"));
  WriteFile(rig.Folder.File("sites.txt"), "two.example|3\r\n\r\n three.example\n");
  Form4& mainSites = rig.Open(rig.Form.cmdImport2);
  mainSites.Command4.Click();
  EXPECT_THAT(Rows(rig.Form.Sites.List4), ElementsAre("main.example", "two.example|3", " three.example"))
      << "a Main Site is taken unchanged";
  EXPECT_EQ(rig.Form.Sites.ListCount(), 3);
}

TEST(ImportFromFile, FailuresEndItSilently) {
  ImportRig rig;
  rig.Window.StatusBar1.SetPanel(StatusPanel::Activity, "as it was");
  for (const std::string& name : {rig.Folder.File("missing.txt"), rig.Folder.Folder.Path, std::string()}) {
    rig.Services.Dialogs.Names.push_back(name);
    rig.Window.Command4.Click();
  }
  rig.Form.Sites.CurrentMainSite = 0;
  rig.File("a.example\n");
  EXPECT_EQ(rig.Status(), "as it was");
  EXPECT_THAT(rig.Services.Dialogs.Boxes, IsEmpty());
  rig.Form.Sites.CurrentMainSite = 1;
  rig.File(std::string(10'000'000, 'x') + "\n" + std::string(10'000'000, '|'));
  EXPECT_EQ(rig.Status(), "Added 2 link(s)");
}

TEST(Form4, ReadsItsSettingsWhenItOpensAndWritesEachChange) {
  ImportRig rig;
  rig.Window.Option1.Choose(1);
  rig.Window.Text1.UserSets("page.example");
  rig.Window.Text2.UserSets("script.example");
  rig.Window.txtPost.UserSets("post.example");
  rig.Window.Combo1.SetListIndex(3);
  rig.AddSites("b.example", {});

  const Form4& second = rig.Open(rig.Form.cmdImport2);
  EXPECT_EQ(second.Option1.Chosen(), 1);
  EXPECT_EQ(second.Text1.Text(), "page.example");
  EXPECT_EQ(second.Text2.Text(), "script.example");
  EXPECT_EQ(second.txtPost.Text(), "post.example");
  EXPECT_EQ(second.Combo1.Text(), "Exclamation Point");
  EXPECT_EQ(second.cmbSites.Text(), "main.example");
  EXPECT_THAT(second.cmbSites.Items(), ElementsAre("main.example", "b.example"));
  rig.Window.Combo1.UserSets(";");
  EXPECT_EQ(rig.Setting("getURLCombo"), "-1");
}

TEST(Form4, ItsCloseEndsItsOwnRequestsAlone) {
  ImportRig rig;
  rig.Form.Sites.List3.Add({"main.example", "a.example", "Direct Link", "001", "a.example"});
  Gets other(rig.Services.Internet);
  other.Start("http://other.example", "Mozilla", [](const auto&) {});
  rig.Services.Internet.OnOpen = [&] { rig.Form.Windows.Close("Form4"); };
  rig.Window.Command1.Click();
  EXPECT_EQ(rig.Services.Internet.EndedWaits, 1);
  rig.Open(rig.Form.cmdImport).cmdPost.Click();
  EXPECT_EQ(rig.Services.Internet.EndedWaits, 2);
  EXPECT_EQ(rig.Services.Internet.Started.size(), 1U);
}

TEST(Form4, MayBeClosedInTheMiddleOfEveryRun) {
  for (int yield = 1; yield < 9; ++yield) {
    ImportRig rig;
    rig.Services.Internet.Bodies["http://p.example"] =
        "<a href=\"http://a.example\">\r<a href=\"http://b.example\">" + std::string(300, ' ');
    const Form4* const closed = &rig.Window;
    rig.Window.Text1.UserSets("http://p.example");
    const int before = rig.Services.EventLoop.Yields;
    rig.Services.EventLoop.AtYield(before + yield, [&] {
      rig.Window.Close();
      rig.Form.Windows.Show("Form4");  // another one takes its place and sweeps
    });
    rig.Window.Command1.Click();
    const auto& next = static_cast<const Form4&>(*rig.Form.Windows.Find("Form4"));
    EXPECT_NE(&next, closed) << yield;
    EXPECT_TRUE(next.ListView1.Empty()) << yield;
  }
}

}  // namespace
}  // namespace requite::test
