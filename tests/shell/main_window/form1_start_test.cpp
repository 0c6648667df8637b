// SPDX-License-Identifier: MIT
// How the main window starts and closes.
#include <gtest/gtest.h>

#include "shell/main_window/form1_rig.h"
#include "shell/recovery.h"

namespace requite {
namespace {

using test::Form1Rig;

TEST(Form1Start, FirstStartShowsTheHelpOnceAndGoesHome) {
  Form1Rig rig;
  WriteFile(rig.Folder.File("Help.chm"), "help");
  rig.Form.Start();
  EXPECT_EQ(rig.Services.Shell.Opened, std::vector<std::string>{rig.Folder.File("Help.chm")});
  EXPECT_EQ(rig.Setting("showHelp"), "0");
  EXPECT_EQ(rig.Form.WebBrowser1.AskedFor(), rig.Folder.File("welcome.html"));
  EXPECT_EQ(rig.Form.Main.Title(), "Requite by The Requite Project");
  EXPECT_EQ(rig.Form.cmdWebsite.Caption(), "Visit Requite");

  Form1 second(rig.Services.All, rig.Folder.Folder);
  second.Start();
  EXPECT_EQ(rig.Services.Shell.Opened.size(), 1U);
}

TEST(Form1Start, TheLastProjectComesBackAndCountsAsSaved) {
  Form1Rig rig;
  const std::string path = rig.Folder.File("Project Files/a.prj");
  WriteFile(path, "main.example\r\npartner.example|2|||\r\nHTML01:my page\r\n\r\n");
  rig.Services.Store.Set("LastProject", path);
  rig.Services.Store.Set("txtHTML1", "page of the run before");
  rig.Form.Start();
  ASSERT_EQ(rig.Form.Sites.List4.RowCount(), 1U);
  EXPECT_EQ(rig.Form.Sites.List1(1).At(0).LinksExpected, "2");
  EXPECT_TRUE(rig.Form.Sites.List1(1).VisibleInEffect());
  EXPECT_TRUE(rig.Form.Sites.ProjectSaved);
  EXPECT_TRUE(rig.Form.Sites.JustLoaded);
  EXPECT_EQ(rig.Setting("txtHTML1"), "my page");
}

TEST(RestoreSettings, TheStoredLinksOptionComesBackAsThePostingMode) {
  Form1Rig rig;
  rig.Services.Store.Set("optAll", "1");
  rig.Services.Store.Set("optScript", "0");
  rig.Form.RestoreSettings();
  EXPECT_EQ(rig.Form.optScript.Chosen(), 1);
  EXPECT_EQ(rig.Form.optAll.Chosen(), 0);
  EXPECT_EQ(rig.Setting("optScript"), "1");
  EXPECT_EQ(rig.Setting("optAll"), "0");
  EXPECT_FALSE(rig.Form.Combo3.Enabled());
  EXPECT_FALSE(rig.Form.Sites.txtPost.Enabled());
  EXPECT_TRUE(rig.Form.Sites.lstMulti.Enabled());
  EXPECT_FALSE(rig.Form.cmdScriptDel.Enabled());

  rig.Form.optAll.Choose(1);
  EXPECT_TRUE(rig.Form.Combo3.Enabled());
  EXPECT_EQ(rig.Setting("optAll"), "1");
}

TEST(RestoreSettings, ReadsEachValueAndItsDefault) {
  Form1Rig plain;
  plain.Form.RestoreSettings();
  EXPECT_EQ(plain.Form.Combo1.Text(), "Which Search Type?");
  EXPECT_EQ(plain.Form.State.PageLimit, 500);
  Form1Rig rig;
  const std::pair<const char*, const char*> stored[] = {
      {"Combo1", "1"},    {"Combo2", "2"},   {"chkNewWin", "0"},  {"chkBullet", "1"},
      {"ScanType", "2"},  {"SkipType", "1"}, {"cmbAdvance", "0"}, {"lHistWebScanned", "70000"},
      {"txtHTML3", "end"}};
  for (const auto& [key, value] : stored) rig.Services.Store.Set(key, value);
  rig.Form.StartWithoutProject();
  EXPECT_EQ(rig.Form.Combo1.Text(), "Yahoo Search");
  EXPECT_EQ(rig.Form.Combo2.Text(), "~500 Domains");
  EXPECT_EQ(rig.Form.chkNewWin.Value(), 0);
  EXPECT_EQ(rig.Form.chkBullet.Value(), 1);
  EXPECT_TRUE(rig.Form.mnuScan.Checked(2));
  EXPECT_TRUE(rig.Form.mnuSkipPopup.Checked(1));
  EXPECT_EQ(rig.Form.State.PageLimit, 1);
  EXPECT_EQ(rig.Form.lblStats[3].Text(), "70000");
  EXPECT_EQ(rig.Form.Sites.txtHTML3.Text(), "end");
}

TEST(RestoreSettings, AStoredTextThatIsNoNumberIsAFailureOfTheStart) {
  for (const char* key : {"optAll", "Combo1", "cmbAdvance", "lHistEmailFound", "ScanType"}) {
    Form1Rig rig;
    rig.Services.Store.Set(key, "many");
    EXPECT_THROW(rig.Form.Start(), RuntimeFailure) << key;
  }
}

TEST(Form1Close, AnEditedProjectIsAskedAboutAndClosesInEveryCase) {
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    Form1Rig rig;
    rig.Form.Start();
    rig.AddSites("main.example", {});
    rig.Services.Dialogs.Answers = {answer};
    rig.Services.Dialogs.Names = {rig.Folder.File("a.prj")};
    int ends = 0;
    rig.Form.OnEnd = [&] { ++ends; };
    rig.Form.State.Scanning = true;
    rig.Form.mnuFile.Click(4);
    rig.Form.Close();
    EXPECT_EQ(rig.Services.Dialogs.Boxes.size(), 1U);
    EXPECT_EQ(FileExists(rig.Folder.File("a.prj")), answer == Answer::Yes);
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(rig.Form.State.Scanning);
    EXPECT_FALSE(rig.Services.Timer1.Running);
    EXPECT_FALSE(rig.Services.Connection.Open);
  }
}

TEST(Recovery, OnlyUnsavedWorkIsWrittenAndItCanBeLoaded) {
  Form1Rig rig;
  rig.Form.Start();
  const std::string home = rig.Folder.File("home");
  EXPECT_FALSE(WriteRecovered(rig.Form.Sites, rig.Folder.Folder, home).Needed);
  rig.AddSites("main.example", {"partner.example"});
  const std::string path = WriteRecovered(rig.Form.Sites, rig.Folder.Folder, home).Path;
  ASSERT_EQ(path, rig.Folder.File("Project Files/Recovered.prj"));
  rig.Form.Files.LoadProject(path);
  ASSERT_EQ(rig.Form.Sites.ListCount(), 1);
  EXPECT_EQ(rig.Form.Sites.List1(1).At(0).WebsiteUrl, "partner.example");

  rig.Form.Sites.ProjectSaved = false;
  std::filesystem::remove_all(rig.Folder.File("Project Files"));
  EXPECT_EQ(WriteRecovered(rig.Form.Sites, rig.Folder.Folder, home).Path, rig.Folder.File("Recovered.prj"));
  const ProgramFolder none{rig.Folder.File("no such folder")};
  EXPECT_EQ(WriteRecovered(rig.Form.Sites, none, home).Path, "");
  std::filesystem::create_directory(home);
  EXPECT_EQ(WriteRecovered(rig.Form.Sites, none, home).Path, home + "/Recovered.prj");
}

}  // namespace
}  // namespace requite
