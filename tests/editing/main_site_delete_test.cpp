// SPDX-License-Identifier: MIT
// Deleting a Main Site through the quick-save file, and saving during a scan.
#include "editing/main_site_delete.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "editing/site_rig.h"

namespace requite {
namespace {

using test::Rows;
using Texts = std::vector<std::string>;

struct QuickRig : test::SiteRig {
  QuickRig() {
    Files.cmdNew();
    EnterMainSite("a.example");
    EnterLinkingSite("for-a.example");
    EnterMainSite("b.example");
    EnterLinkingSite("for-b.example");
    EnterMainSite("c.example");
    for (const char* main : {"b.example", "a.example", "b.example"})
      Data.lstRules.Add({main, "Global", "", ""});
    Data.List3.Add({"b.example", "for-b.example", "Direct Link", "001", "x"}, kIconGood);
    Data.ProjectSaved = true;
  }
  void Delete(int row) {
    Sites.SelectMainSite(row);
    Controls.cmdDelete.Click();
  }
  [[nodiscard]] bool HasReport() const { return FileExists(Folder.File("tempreport.html")); }
};

TEST(DeleteMainSite, NumbersTheListsAnewAndTakesTheRulesAlong) {
  QuickRig rig;
  rig.Data.List1(1).Set(0, &LinkingSite::Description, "gone");
  rig.Delete(1);
  EXPECT_EQ(Rows(rig.Data.List4), (Texts{"a.example", "c.example"}));
  ASSERT_EQ(rig.Data.ListCount(), 2);
  EXPECT_EQ(Rows(rig.Data.List1(1)), Texts{"for-a.example|1|||"}) << "a description does not survive a file";
  EXPECT_TRUE(rig.Data.List1(2).Empty());
  EXPECT_EQ(Rows(rig.Data.lstRules), Texts{"a.example|Global||"});
  EXPECT_EQ(rig.Data.List3.RowCount(), 1U) << "results of a deleted Main Site stay";
  EXPECT_EQ(rig.Data.CurrentMainSite, 1);
  EXPECT_EQ(rig.Data.List4.SelectedRow(), 0);
  EXPECT_TRUE(rig.HasReport());
  EXPECT_EQ(rig.Services.Store.Read("LastProject"), std::nullopt);
}

TEST(DeleteMainSite, TheOnlyOneGoesWithoutAFileAlsoWhenItIsNotSelected) {
  QuickRig rig;
  rig.Delete(2);
  rig.Delete(1);
  DeleteFile(rig.Folder.File("quicksave.qsv"));
  rig.Data.ProjectSaved = true;
  rig.Data.List4.SelectOnly(-1);
  rig.Controls.cmdDelete.Click();
  EXPECT_TRUE(rig.Data.List4.Empty());
  EXPECT_EQ(rig.Data.ListCount(), 0);
  EXPECT_FALSE(rig.Controls.innerFrame2.Visible());
  EXPECT_FALSE(rig.Data.ProjectSaved);
  EXPECT_EQ(rig.Data.List3.RowCount(), 1U);
  EXPECT_EQ(rig.Data.CurrentMainSite, 1);
  EXPECT_FALSE(FileExists(rig.Folder.File("quicksave.qsv")));
}

TEST(DeleteMainSite, AnEmptyPageTextCutsOffWhatFollowsIt) {
  QuickRig rig;
  rig.Data.txtHTML2.SetText("");
  rig.Delete(2);
  EXPECT_EQ(rig.Data.List4.RowCount(), 2U);
  EXPECT_TRUE(rig.Data.List3.Empty());
  EXPECT_TRUE(rig.Data.lstRules.Empty());
  EXPECT_FALSE(rig.HasReport());
}

struct AutoRig : test::SiteRig {
  void Tick(int count) {
    for (int i = 0; i < count; ++i) Controls.Auto.Timer1_Tick(Scanning);
  }
  std::int32_t& Ticks = Controls.State.AutoSaveTicks;
};

TEST(AutoSave, SavesEvery300SecondsOfScanningWhateverTheOptionsSay) {
  AutoRig rig;
  const std::string path = rig.Folder.File("last.prj");
  rig.Services.Store.Set("LastProject", path);
  rig.Services.Store.Set("txtAutoSave", "1");
  rig.Tick(400);
  EXPECT_EQ(rig.Ticks, 0) << "only seconds of scanning count";
  rig.Scanning = true;
  rig.Tick(400);
  EXPECT_EQ(rig.Ticks, 0) << "and only with the setting on";
  rig.Services.Store.Set("chkAutoSave", "1");
  rig.Data.ProjectSaved = false;
  rig.Tick(299);
  EXPECT_FALSE(FileExists(path));
  rig.Tick(1);
  EXPECT_TRUE(FileExists(path));
  EXPECT_TRUE(rig.Data.ProjectSaved);
  EXPECT_EQ(rig.Ticks, 0);
}

TEST(AutoSave, AnUnnamedProjectGoesToAFolderThatNothingMakes) {
  AutoRig rig;
  rig.Scanning = true;
  rig.Services.Store.Set("chkAutoSave", "1");
  rig.Services.Store.Set("LastProject", " ");
  EXPECT_THROW(rig.Tick(300), RuntimeFailure);
  std::filesystem::create_directories(rig.Folder.File("projects"));
  rig.Tick(300);
  EXPECT_EQ(rig.Services.Store.Read("LastProject"), rig.Folder.File("projects/AutoSaved.prj"));
  EXPECT_TRUE(FileExists(rig.Folder.File("projects/AutoSaved.prj")));
}

}  // namespace
}  // namespace requite
