// SPDX-License-Identifier: MIT
// Unsaved work survives every command that replaces it, and deleted sites come back where they were.
#include <gtest/gtest.h>

#include <filesystem>

#include "model/project_text.h"
#include "shell/main_window/form1_rig.h"
#include "shell/main_window/site_undo.h"
#include "shell/main_window/work_keeper.h"

namespace requite {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

/// A project with everything that a project file loses.
struct WorkRig : test::Form1Rig {
  WorkRig() {
    Form.Start();
    Keeper.OnKept = [this](const WorkKeeper::Kept& kept) { Kept.push_back(kept); };
    Keeper.Begin();
    Fill();
  }
  void Fill() {
    AddSites("first.example", {"a.example", "b.example"});
    AddSites("second.example", {"c.example", "d.example", "e.example"});
    AddSites("third.example", {});
    Form.Sites.List1(2).Set(1, &LinkingSite::Description, "kept | words");
    Form.Sites.List1(2).SetColour(1, kRed);
    Form.Sites.txtHTML2.SetText("");
    Form.Sites.List3.Add({"second.example", "c.example", "Direct Link", "001", "u"}, kIconGood, kBlue);
    for (const char* main : {"first.example", "second.example", "Global", "second.example"})
      Form.Sites.lstRules.Add({main, "c.example", "LimitRoot", main});
  }
  [[nodiscard]] std::string Text() { return ProjectText(Form.Sites); }
  std::string Save(const std::string& name) {
    const std::string path = Folder.File("Project Files/" + name);
    Form.Files.SaveProject(path);
    return path;
  }

  WorkKeeper Keeper{Form};
  std::vector<WorkKeeper::Kept> Kept;
};

TEST(WorkKeeper, BringsEveryByteBackAfterEachCommandThatReplacesTheProject) {
  WorkRig rig;
  rig.Services.Dialogs.Answers = {};
  const std::string text = rig.Text();
  rig.Keeper.Begin();
  const std::string other = rig.Folder.File("Project Files/other.prj");
  WriteFile(other, "other.example\r\nHTML01:a\r\nHTML02:b\r\nHTML03:c\r\n\r\n");
  const std::string mine = rig.Save("mine.prj");
  const auto edit = [&rig] { rig.Form.Sites.List1(1).Set(0, &LinkingSite::Description, "edited"); };
  edit();
  const std::string edited = rig.Text();
  ASSERT_NE(edited, text);
  const auto open = [&](auto&& click) {
    rig.Services.Dialogs.Names = {other};
    click();
    EXPECT_EQ(rig.Form.Sites.List4.At(0).Text, "other.example");
  };
  const std::vector<std::function<void()>> commands = {
      [&] { rig.Form.cmdNew.Click(); },
      [&] { open([&] { rig.Form.mnuFile.Click(1); }); },
      [&] { open([&] { rig.Form.mnuFile.Click(2); }); },
  };
  for (const auto& command : commands) {
    rig.Kept.clear();
    rig.Form.Sites.ProjectSaved = true;  // as after an import, which leaves the flag alone
    command();
    ASSERT_EQ(rig.Kept.size(), 1U);
    EXPECT_EQ(rig.Kept[0].Project, mine);
    EXPECT_EQ(ReadFile(rig.Kept[0].Copy), edited + "\r\n");
    command();
    EXPECT_EQ(rig.Kept.size(), 1U) << "what is saved or empty is not kept";
    ASSERT_TRUE(rig.Keeper.BringBack(rig.Kept[0].Copy, rig.Kept[0].Project));
    EXPECT_EQ(rig.Text(), edited);
    EXPECT_EQ(rig.Form.Files.OpenPath(), mine);
    EXPECT_FALSE(rig.Form.Sites.ProjectSaved);
    EXPECT_EQ(rig.Form.Sites.List4.SelectedRow(), 0);
    EXPECT_EQ(rig.Keeper.Copies().Unsaved().size(), 1U) << "the same text is kept once";
  }
  // The close with No: the window keeps the work when the program has ended.
  std::optional<WorkKeeper::Kept> closing;
  rig.Form.OnClosed = [&] { closing = rig.Keeper.KeepUnsaved(); };
  rig.Services.Dialogs.Answers = {Answer::No};
  rig.Form.Close();
  ASSERT_TRUE(closing);
  test::FakeServices services;
  Form1 next(services.All, rig.Folder.Folder);
  next.Start();
  WorkKeeper keeper(next);
  keeper.Begin();
  ASSERT_TRUE(keeper.BringBack(closing->Copy, closing->Project));
  EXPECT_EQ(ProjectText(next.Sites), edited);
}

TEST(WorkKeeper, AFailureIsToldAndStopsNobody) {
  WorkRig rig;
  WriteFile(rig.Folder.File("Backup"), "in the way");
  rig.Form.cmdNew.Click();
  ASSERT_EQ(rig.Kept.size(), 1U);
  EXPECT_EQ(rig.Kept[0].Copy, "");
  EXPECT_NE(rig.Kept[0].Failure, "");
  EXPECT_TRUE(rig.Form.Sites.List4.Empty());
  EXPECT_THROW(rig.Keeper.BringBack(rig.Folder.File("none.prj"), ""), RuntimeFailure);
  rig.Fill();
  rig.Form.State.Scanning = true;
  const std::string text = rig.Text();
  EXPECT_FALSE(rig.Keeper.BringBack(rig.Folder.File("filetypes.txt"), ""));
  EXPECT_EQ(rig.Text(), text);
}

TEST(KeptCopies, AreBoundedAndNoCopyOfASaveIsEverTouched) {
  test::TemporaryFolder folder;
  const KeptCopies copies(folder.Folder, {3, 100});
  fs::create_directories(folder.File("Backup"));
  WriteFile(folder.File("Backup/20260102-140405 a.prj"), "of a save");
  fs::create_directories(folder.File("Backup/Unsaved projects"));
  WriteFile(folder.File("Backup/Unsaved projects/zz of the user.prj"), "text 1\r\n");
  for (int i = 0; i < 5; ++i)
    static_cast<void>(copies.Keep("text " + std::to_string(i), "/x/a.prj", "2026-01-02T14:04:05Z"));
  Texts kept;
  for (const std::string& each : copies.Unsaved()) kept.push_back(ReadFile(each));
  EXPECT_EQ(kept, (Texts{"text 4\r\n", "text 3\r\n", "text 2\r\n"}));
  EXPECT_TRUE(copies.Unsaved()[0].ends_with("20260102-140405-005 a.prj")) << copies.Unsaved()[0];
  static_cast<void>(copies.Keep(std::string(95, 'x'), "", "2026-01-02T14:04:06Z"));
  ASSERT_EQ(copies.Unsaved().size(), 1U) << "all together are too large";
  EXPECT_TRUE(copies.Unsaved()[0].ends_with("20260102-140406-001 Unnamed.prj"));
  EXPECT_THROW(static_cast<void>(copies.Keep(std::string(101, 'x'), "", "2026-01-02T14:04:07Z")),
               RuntimeFailure);
  EXPECT_EQ(copies.Unsaved().size(), 1U);
  const std::string late = copies.Keep("with the clock set back", "", "2025-01-02T14:04:06Z");
  EXPECT_EQ(copies.Unsaved(), Texts{late});
  EXPECT_TRUE(FileExists(folder.File("Backup/Unsaved projects/zz of the user.prj")));
  EXPECT_EQ(copies.Saved(), Texts{folder.File("Backup/20260102-140405 a.prj")});
}

struct UndoRig : WorkRig {
  UndoRig() {
    Undo.OnDeleted = [this] { ++Deleted; };
  }
  void DeleteMain(int row) {
    ClickRow(Form.Sites.List4, row);
    Form.cmdDelete.Click();
  }
  void DeleteLinking(int k, int row) {
    ClickRow(Form.Sites.List4, k - 1);
    ClickRow(Form.Sites.List1(k), row);
    Form.cmbDel.Click();
  }

  SiteUndo Undo{Form};
  int Deleted = 0;
};

TEST(SiteUndo, AMainSiteComesBackWithAllThatItsDeletionTook) {
  UndoRig rig;
  rig.Form.mnuFile.Click(1);  // so that the deletion leaves the project flagged as saved
  for (const bool saved : {true, false}) {
    rig.Form.Sites.ProjectSaved = saved;
    const std::string before = rig.Text();
    rig.DeleteMain(1);
    EXPECT_EQ(rig.Undo.Words(), "second.example was deleted with its 3 Linking Sites and 2 rules.");
    EXPECT_EQ(rig.Form.Sites.ListCount(), 2);
    EXPECT_EQ(rig.Undo.Undo(), "second.example is back.");
    EXPECT_EQ(rig.Text(), before);
    EXPECT_EQ(rig.Form.Sites.List1(2).Colour(1), kRed);
    EXPECT_EQ(rig.Form.Sites.List3.Colour(0), kBlue);
    EXPECT_EQ(rig.Form.Sites.List4.SelectedRow(), 1);
    EXPECT_EQ(rig.Form.Sites.ProjectSaved, saved);
    EXPECT_TRUE(rig.Undo.Empty());
  }
  // The file was saved without the site, so the project with it is unsaved.
  rig.Form.Sites.ProjectSaved = true;
  rig.DeleteMain(0);
  rig.Undo.ProjectIsSaved();
  rig.Undo.Undo();
  EXPECT_FALSE(rig.Form.Sites.ProjectSaved);
  // After another change, the site comes back without that change being lost.
  rig.DeleteMain(1);
  rig.AddSites("new.example", {"n.example"});
  EXPECT_EQ(rig.Undo.Undo(), "second.example is back, after the other Main Sites.");
  EXPECT_EQ(test::Rows(rig.Form.Sites.List4),
            (Texts{"first.example", "third.example", "new.example", "second.example"}));
  EXPECT_EQ(test::Rows(rig.Form.Sites.List1(4))[1], "d.example|1|||kept | words");
  EXPECT_EQ(rig.Form.Sites.List1(4).Colour(1), kRed);
  EXPECT_EQ(test::Rows(rig.Form.Sites.lstRules).back(), "second.example|c.example|LimitRoot|second.example");
}

TEST(SiteUndo, DeletionsAreTakenBackOneAfterTheOther) {
  UndoRig rig;
  const std::string before = rig.Text();
  rig.DeleteLinking(2, 0);
  EXPECT_EQ(rig.Undo.Words(), "c.example was deleted with its 4 rules.")
      << "the first site takes its rules along";
  rig.DeleteLinking(2, 1);
  EXPECT_EQ(rig.Undo.Words(), "e.example was deleted.");
  rig.DeleteMain(1);
  rig.DeleteMain(1);
  rig.DeleteMain(0);  // the only one left, without a file
  EXPECT_EQ(rig.Deleted, 5);
  while (!rig.Undo.Empty()) rig.Undo.Undo();
  EXPECT_EQ(rig.Text(), before);
  EXPECT_EQ(rig.Form.Sites.List1(2).SelectedRow(), 0);
  EXPECT_TRUE(rig.Form.cmbDel.Enabled());
  // A row comes back to its place in a sorted list, and stays deleted without its Main Site.
  rig.Form.Sites.List1(2).SetSort({true, 0, 1});
  const Texts sorted = test::Rows(rig.Form.Sites.List1(2));
  rig.DeleteLinking(2, 1);
  rig.Undo.Undo();
  EXPECT_EQ(test::Rows(rig.Form.Sites.List1(2)), sorted);
  rig.DeleteLinking(2, 1);
  rig.Form.Editing.NewProject();
  EXPECT_EQ(rig.Undo.Undo(), "second.example is gone, so d.example stays deleted.");
  rig.Fill();
  rig.DeleteLinking(2, 1);
  rig.Form.State.Scanning = true;
  EXPECT_EQ(rig.Undo.Undo(), "");
  EXPECT_FALSE(rig.Undo.Empty());
}

}  // namespace
}  // namespace requite
