// SPDX-License-Identifier: MIT
// The runs behind the import's buttons: what is shown, what is added, and what happens in between.
#include "import/import_links.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fakes.h"

namespace requite::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ImportRig {
  explicit ImportRig(const ImportVersion& version = kImportLinkingSites)
      : Import(version,
               {Sites, State, Settings(Services.Store), Services.Internet, Services.EventLoop,
                Services.Dialogs, Folder.Folder, [this] { return Closed; }},
               {Option1, Text1, Text2, Combo1, Command1, ListView1, cmdAdd, Command4, StatusBar1}) {
    Import.Wire();
    Sites.AddMainSite("main.example");
    Sites.CurrentMainSite = 1;
    Option1.Choose(0);
  }

  std::vector<std::string> Links() const {
    std::vector<std::string> links;
    for (std::size_t row = 0; row < ListView1.RowCount(); ++row) links.push_back(ListView1.At(row).Url);
    return links;
  }
  std::vector<std::string> LinkingSites() const {
    std::vector<std::string> sites;
    const LinkingSiteList& list = Sites.List1(1);
    for (std::size_t row = 0; row < list.RowCount(); ++row) {
      sites.push_back(list.At(row).WebsiteUrl + "|" + list.At(row).LinksExpected);
    }
    return sites;
  }
  std::string Setting(const std::string& key) { return Services.Store.Read(key).value_or("-"); }
  std::string Status() const { return StatusBar1.Panel(1); }
  void Page(const std::string& html) {
    Text1.UserSets("http://home.example/links.html");
    Services.Internet.Bodies["http://home.example/links.html"] = html;
  }
  /// A script's output, long enough not to be filled up.
  void Script(const std::string& text) {
    Option1.Choose(1);
    Text2.UserSets("http://home.example/list");
    Services.Internet.Bodies["http://home.example/list"] = text + std::string(300, '\n');
  }
  void File(const std::string& text) {
    WriteFile(Folder.File("sites.txt"), text);
    Services.Dialogs.Names.push_back(Folder.File("sites.txt"));
    Command4.Click();
  }

  TemporaryFolder Folder;
  FakeServices Services;
  Project Sites;
  ScanState State;
  bool Closed = false;
  OptionGroup Option1{"Option1", {"", ""}};
  TextBox Text1{"Text1"};
  TextBox Text2{"Text2"};
  ComboBox Combo1{"Combo1", std::string(kNoDelimiter), {"|", "%", ",", "!"}};
  Button Command1{"Command1", ""};
  RecordList<FoundLink> ListView1{"ListView1"};
  Button cmdAdd{"cmdAdd", ""};
  Button Command4{"Command4", ""};
  StatusBar StatusBar1{"StatusBar1"};
  ImportLinks Import;
};

TEST(GetLinks, ShowsThePagesLinksAndOneEmptyRow) {
  ImportRig rig;
  rig.Page("<a href=\"http://a.example\"><a href=\"http://b.example/x,y\">" + std::string(300, ' '));
  std::vector<std::string> texts;
  rig.Services.EventLoop.OnEveryYield = [&] {
    if (texts.empty() || texts.back() != rig.Status()) texts.push_back(rig.Status());
  };
  rig.Command1.Click();
  EXPECT_THAT(rig.Links(), ElementsAre("a.example/", "b.example/x", "y", ""));
  EXPECT_THAT(texts, ElementsAre("Conecting to http://home.example/links.html", "Extracted 1 link(s)",
                                 "Extracted 2 link(s)", "Added 0 link(s)", "Added 1 link(s)",
                                 "Added 2 link(s)", "Added 3 link(s)"));
  EXPECT_EQ(rig.Status(), "Finished Downloading - 4 links found.");

  rig.Page("<a href=\"http://home.example/a\">");  // short, and filled up with bytes of 0
  rig.Command1.Click();
  EXPECT_THAT(rig.Links(), IsEmpty());
  EXPECT_EQ(rig.Status(), "Finished Downloading - 0 links found.");

  rig.Text1.UserSets("gone.example");
  rig.Command1.Click();
  EXPECT_EQ(rig.Services.Internet.Asked.back(), "http://gone.example");
  EXPECT_EQ(rig.Text1.Text(), "gone.example");
  EXPECT_EQ(rig.Status(), "Finished Downloading - 0 links found.");
}

TEST(GetLinks, TakesAScriptsOutputApart) {
  ImportRig rig;
  rig.Script("a.example b.example,c.example");
  rig.Command1.Click();
  ASSERT_EQ(rig.Services.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(rig.Services.Dialogs.Boxes[0].Text, "You must select a delimiter first");
  EXPECT_THAT(rig.Services.Internet.Asked, IsEmpty());

  rig.Combo1.SetListIndex(0);
  rig.Command1.Click();
  EXPECT_THAT(rig.Links(), ElementsAre("a.example", "b.example", "c.example" + std::string(300, '\n')));

  rig.Script("<p>a.example<br>XyB.example</p>xYc.example<br>\r\n,d.example,");
  rig.Combo1.UserSets("xy");
  rig.Command1.Click();
  EXPECT_THAT(rig.Links(),
              ElementsAre("a.example", "B.example", "c.example", "d.example", std::string(300, '\n')));
  EXPECT_EQ(rig.Setting("getURLCombo"), "-1");

  rig.Services.Internet.Bodies["http://home.example/list"] = "a.example,b.example";
  rig.Command1.Click();
  EXPECT_THAT(rig.Links(), ElementsAre("a.example", "b.example")) << "shown up to the filling of 0 bytes";

  rig.Services.Internet.Bodies["http://home.example/list"] = "";
  rig.Command1.Click();
  EXPECT_THAT(rig.Links(), ElementsAre(""));
  EXPECT_EQ(rig.Status(), "Finished Downloading - 1 links found.");
}

TEST(GetLinks, ASecondPressRunsInsideTheFirst) {
  ImportRig rig;
  rig.Page("<a href=\"http://a.example\"><a href=\"http://b.example\">" + std::string(300, ' '));
  rig.Services.EventLoop.OnEveryYield = [&] {
    if (rig.Status() != "Added 1 link(s)") return;
    rig.Services.EventLoop.OnEveryYield = nullptr;
    rig.Command1.Click();
  };
  rig.Command1.Click();
  EXPECT_THAT(rig.Links(), ElementsAre("a.example/", "b.example/", "", ""));
}

TEST(AddSelectedLinks, GoToTheMainSiteOnShow) {
  ImportRig rig(kImportMainSites);
  rig.Page("<a href=\"http://a.example\"><a href=\"http://b.example\"><a href=\"http://a.example\">" +
           std::string(300, ' '));
  rig.Command1.Click();
  rig.ListView1.SelectOnly(1);
  rig.cmdAdd.Click();
  EXPECT_THAT(rig.LinkingSites(), ElementsAre("b.example/|1"));
  rig.ListView1.OnRightButtonUp(-1);
  rig.cmdAdd.Click();
  EXPECT_THAT(rig.LinkingSites(),
              ElementsAre("b.example/|1", "a.example/|1", "b.example/|1", "a.example/|1"));
  EXPECT_TRUE(rig.Sites.ProjectSaved);
  EXPECT_EQ(rig.ListView1.RowCount(), 4U);

  rig.Sites.List1(1).SetSort({true, 0, 0});
  rig.Sites.List1(1).Set(3, &LinkingSite::LinksExpected, "7");
  rig.ListView1.SelectOnly(0);
  rig.cmdAdd.Click();
  EXPECT_THAT(rig.LinkingSites(),
              ElementsAre("a.example/|1", "a.example/|1", "a.example/|", "b.example/|1", "b.example/|1"))
      << "in a sorted list the last row is another one";
  rig.Sites.CurrentMainSite = 2;
  rig.cmdAdd.Click();
  EXPECT_EQ(rig.Sites.List1(1).RowCount(), 5U);
}

TEST(ImportFromFile, LinesBecomeLinkingSites) {
  ImportRig rig;
  rig.File(" a.example \n\nb.example| 3|x\r\n \rc.example\r|\n\x01\x80\xff");
  EXPECT_THAT(rig.LinkingSites(),
              ElementsAre("a.example|1", "b.example| 3", "c.example|1", "|", "\x01\x80\xff|1"));
  EXPECT_EQ(rig.Status(), "Added 5 link(s)");
  ASSERT_EQ(rig.Services.Dialogs.FileDialogs.size(), 1U);
  EXPECT_EQ(rig.Services.Dialogs.FileDialogs[0].Folder, rig.Folder.File("Project Files"));
  EXPECT_EQ(rig.Services.Dialogs.FileDialogs[0].Filter, "Text Files (*.txt)|*.txt");
}

TEST(ImportFromFile, FailuresEndItSilently) {
  ImportRig rig;
  rig.StatusBar1.SetPanel(1, "as it was");
  for (const std::string& name : {rig.Folder.File("missing.txt"), rig.Folder.Folder.Path, std::string()}) {
    rig.Services.Dialogs.Names.push_back(name);
    rig.Command4.Click();
  }
  rig.Sites.CurrentMainSite = 0;
  rig.File("a.example\n");
  EXPECT_EQ(rig.Status(), "as it was");
  EXPECT_THAT(rig.Services.Dialogs.Boxes, IsEmpty());
  rig.Sites.CurrentMainSite = 1;
  rig.File(std::string(10'000'000, 'x') + "\n" + std::string(10'000'000, '|'));
  EXPECT_EQ(rig.Status(), "Added 2 link(s)");
}

}  // namespace
}  // namespace requite::test
