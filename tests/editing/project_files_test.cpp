// SPDX-License-Identifier: MIT
// What saving, loading and the commands around them leave in files, flags, settings and dialogs.
#include "editing/project_files.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "editing/site_rig.h"
#include "model/project_text.h"
#include "platform/runtime_failure.h"

namespace requite::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ProjectFilesTest : public testing::Test, protected SiteRig {
 protected:
  /// A file in the folder for project files.
  [[nodiscard]] std::string Path(const std::string& name) const {
    return Folder.File("Project Files/" + name);
  }
  [[nodiscard]] std::string Stored(const std::string& key) { return Services.Store.Read(key).value_or("-"); }
  std::string DefaultNameFor(const std::string& mainSite) {
    Data.List4.Clear();
    Data.List4.Add({mainSite});
    Files.cmdSave();
    return Services.Dialogs.FileDialogs.back().DefaultName;
  }
};

TEST_F(ProjectFilesTest, TheOldFileIsGoneBeforeASaveFails) {
  WriteFile(Path("a.prj"), "old");
  Data.List4.Add({"a Main Site without a list"});
  EXPECT_THROW(Files.SaveProject(Path("a.prj")), RuntimeFailure);
  EXPECT_FALSE(FileExists(Path("a.prj")));
  EXPECT_EQ(ReadFile(Folder.File("Backup/a.prj")), "old") << "nobody loses a project to a failed save";
}

TEST_F(ProjectFilesTest, AWriteProtectedFileIsNotReplaced) {
  WriteFile(Path("a.prj"), "old");
  ASSERT_EQ(::chmod(Path("a.prj").c_str(), 0444), 0);
  EXPECT_THROW(Files.SaveProject(Path("a.prj")), RuntimeFailure);
  EXPECT_EQ(ReadFile(Path("a.prj")), "old");
}

TEST_F(ProjectFilesTest, ALoadReplacesTheProjectAndSelectsItsFirstMainSite) {
  EnterMainSite("old.example");
  Data.lstRules.Add({"Global", "Global", "LimitString", "old"});
  WriteFile(Path("b.prj"), "one\r\na.example|1\r\nNEXTSITE:two\r\nHTML01:x\r\nHTML02:y\r\nHTML03:z\r\n\r\n");
  Controls.txtDomain.UserSets("half typed");
  Data.ProjectSaved = false;
  Files.LoadProject(Path("b.prj"));
  EXPECT_THAT(Rows(Data.List4), ElementsAre("one", "two"));
  EXPECT_THAT(Rows(Data.lstRules), IsEmpty());
  EXPECT_EQ(Data.CurrentMainSite, 1);
  EXPECT_EQ(Data.List4.SelectedRow(), 0);
  EXPECT_TRUE(Data.List1(1).Visible());
  EXPECT_FALSE(Data.List1(2).Visible());
  EXPECT_EQ(Controls.lblblah.Text(), "Enter linking sites: one");
  EXPECT_TRUE(Data.ProjectSaved);
  EXPECT_TRUE(Data.JustLoaded);
  EXPECT_EQ(Stored("LastProject"), Path("b.prj"));
  EXPECT_EQ(WebBrowser2.AskedFor(), "about:blank");
}

TEST_F(ProjectFilesTest, TheFirstTypedCharacterAfterALoadIsNoEdit) {
  WriteFile(Path("b.prj"), "one\r\nHTML01:x\r\n");
  Files.LoadProject(Path("b.prj"));
  Controls.txtDomain.UserTypes("a");
  EXPECT_TRUE(Data.ProjectSaved);
  EXPECT_FALSE(Data.JustLoaded);
  Controls.txtDomain.UserTypes("b");
  EXPECT_FALSE(Data.ProjectSaved);
}

TEST_F(ProjectFilesTest, ALoadThatStopsHalfWaySelectsNothingAndAsksForNoReport) {
  WriteFile(Path("b.prj"), "one\r\na.example|1\r\nHTML01:\r\nNEXTSITE:two\r\n");
  WebBrowser2.Navigate("the report before");
  Files.LoadProject(Path("b.prj"));
  EXPECT_THAT(Rows(Data.List1(1)), ElementsAre("a.example|1|||", "HTML01:||||"));
  EXPECT_EQ(Data.List4.SelectedRow(), -1);
  EXPECT_FALSE(Data.List1(1).Visible());
  EXPECT_FALSE(Controls.innerFrame2.Visible());
  EXPECT_TRUE(Data.ProjectSaved);
  EXPECT_EQ(WebBrowser2.AskedFor(), "the report before");
}

TEST_F(ProjectFilesTest, AMissingOrEmptyFileGivesAnEmptyProjectAndStaysTheLastOne) {
  WriteFile(Path("empty.prj"), "");
  for (const std::string& path : {Path("none.prj"), Path("empty.prj"), Folder.File("Project Files")}) {
    Data.AddMainSite("main.example");
    Data.ProjectSaved = false;
    Files.LoadProject(path);
    EXPECT_THAT(Rows(Data.List4), IsEmpty()) << path;
    EXPECT_EQ(Stored("LastProject"), path);
    EXPECT_FALSE(Data.ProjectSaved) << path;
    EXPECT_FALSE(Data.JustLoaded) << path;
    EXPECT_THAT(Services.Dialogs.Boxes, IsEmpty());
  }
}

TEST_F(ProjectFilesTest, OpenAsksInTheProjectFolderAndACancelChangesNothing) {
  EnterMainSite("one");
  Files.cmdOpen();
  EXPECT_THAT(Rows(Data.List4), ElementsAre("one"));
  const FileDialog& dialog = Services.Dialogs.FileDialogs.back();
  EXPECT_EQ(dialog.Folder, Folder.File("Project Files"));
  EXPECT_EQ(dialog.Filter, "Project Files (*.prj)|*.prj");
  WriteFile(Path("b.prj"), "two\r\nHTML01:x\r\n");
  Services.Dialogs.Names = {Path("b.prj")};
  Data.ProjectSaved = false;
  Files.cmdOpen();
  EXPECT_THAT(Rows(Data.List4), ElementsAre("two"));
  EXPECT_THAT(Services.Dialogs.Boxes, IsEmpty()) << "unsaved work is replaced without a question";
}

TEST_F(ProjectFilesTest, SaveOffersANameMadeOfTheFirstMainSite) {
  Files.cmdSave();
  EXPECT_EQ(Services.Dialogs.FileDialogs.back().DefaultName, "Unnamed.prj");
  EXPECT_EQ(DefaultNameFor(""), "Unnamed.prj");
  EXPECT_EQ(DefaultNameFor("http://www.main.example/links/"), "wwwmainexample.prj");
  EXPECT_EQ(DefaultNameFor("/x"), ".prj");
  EXPECT_EQ(DefaultNameFor("ht.tp://main"), "main.prj");  // the dots go first
  EXPECT_EQ(Stored("LastProject"), "-") << "cancelled dialogs save nothing";
}

TEST_F(ProjectFilesTest, AFailedSaveCommandAsksOnceMoreAndThenFails) {
  EnterMainSite("main.example");
  const std::string bad = Folder.File("no such folder/a.prj");
  Services.Dialogs.Names = {bad, Path("a.prj")};
  Files.cmdSave();
  ASSERT_EQ(Services.Dialogs.FileDialogs.size(), 2U);
  EXPECT_EQ(Services.Dialogs.FileDialogs[0].DefaultName, "mainexample.prj");
  EXPECT_EQ(Services.Dialogs.FileDialogs[1].DefaultName, "unnamed.prj");
  EXPECT_TRUE(FileExists(Path("a.prj")));

  Services.Dialogs.Names = {bad};
  EXPECT_NO_THROW(Files.cmdSave()) << "the second dialog was cancelled";
  Services.Dialogs.Names = {bad, bad};
  EXPECT_THROW(Files.cmdSave(), RuntimeFailure);
  EXPECT_THAT(Services.Dialogs.Boxes, IsEmpty());
}

}  // namespace
}  // namespace requite::test
