// SPDX-License-Identifier: MIT
// Every save on a disk that fails at any one call, fills up at it, or loses power after it: nothing of
// the user's is lost, and no piece of a file is left anywhere.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "editing/main_site_delete.h"
#include "editing/site_rig.h"
#include "model/file_types.h"
#include "model/project_text.h"

#include "platform/whole_file.h"
#include "results/saved_files.h"
#include "shell/recovery.h"
#include "support/at_every_call.h"

namespace requite::test {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;

const std::string kOld = "the old project\r\nHTML01:x\r\n\r\n";
const std::string kOlder = "one still older\r\n\r\n";

/// A project that is saved over an older one. `elsewhere` is the folder of the project file.
struct ProjectSave : SiteRig {
  explicit ProjectSave(const fs::path& elsewhere = fs::temp_directory_path()) : Projects(elsewhere) {
    EnterMainSite("main.example");
    Fresh = ProjectText(Data) + "\r\n";
  }
  void LayOut(bool withBackup) {
    WriteFile(Path, kOld);
    fs::remove_all(Folder.File("Backup"));
    if (withBackup) {
      fs::create_directory(Folder.File("Backup"));
      WriteFile(Backup, kOlder);
    }
    Data.ProjectSaved = false;
  }
  bool Saves() {
    return PassOver([this] { Files.SaveProject(Path); });
  }
  void ExpectNothingLost(bool saved) {
    EXPECT_EQ(Data.ProjectSaved, saved);
    EXPECT_TRUE(!saved || TextOf(Path) == Fresh);
    EXPECT_THAT(TextOf(Path), AnyOf(kOld, Fresh, kNone));
    EXPECT_THAT(TextOf(Backup), AnyOf(kOld, kOlder, kNone));
    EXPECT_TRUE(TextOf(Path) == kOld || TextOf(Backup) == kOld);
    EXPECT_EQ(UnfinishedFiles(Folder.Folder.Path) + UnfinishedFiles(Projects.Folder.Path), 0);
  }

  TemporaryFolder Projects;
  std::string Path = Projects.File("a.prj");
  std::string Backup = Folder.File("Backup/a.prj");
  std::string Fresh;
};

TEST(SaveFaults, AProjectIsInPlaceOrInBackupWhateverFails) {
  const fs::path memory = fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path();
  for (const fs::path& elsewhere : {fs::temp_directory_path(), memory}) {
    for (const bool linked : {false, true}) {
      ProjectSave save(elsewhere);
      if (linked) {
        fs::create_symlink(save.Projects.File("real"), save.Projects.File("link.prj"));
        save.Path = save.Projects.File("link.prj");
        save.Backup = save.Folder.File("Backup/link.prj");
      }
      const int calls = AtEveryCall([&](FailingDisk& disk) {
        save.LayOut(disk.FailAt % 2 == 0);
        const bool saved = disk.Lets([&] { save.Files.SaveProject(save.Path); });
        save.ExpectNothingLost(saved);
        EXPECT_TRUE(save.Saves()) << "the disk is well again";
        EXPECT_EQ(TextOf(save.Path), save.Fresh);
        EXPECT_THAT(TextOf(save.Backup), AnyOf(kOld, save.Fresh)) << "no piece of a failed save";
        EXPECT_EQ(fs::is_symlink(save.Path), linked);
      });
      EXPECT_GT(calls, 10);
    }
  }
}

TEST(SaveFaults, APowerCutLeavesTheProjectInPlaceOrInBackup) {
  int states = 0;
  for (const bool withBackup : {false, true}) {
    ProjectSave save;
    // With 0 the save succeeds; the road of a failed one has to be safe at each of its steps too.
    for (int failAt = 0;; ++failAt) {
      save.LayOut(withBackup);
      DiskState before{{save.Path, kOld}};
      if (withBackup) before[save.Backup] = kOlder;
      std::vector<FileEvent> events;
      bool reached = false;
      {
        const FileFaults faults(failAt);
        save.Saves();
        events = faults.Events();
        reached = faults.Reached();
      }
      for (std::size_t count = 0; count <= events.size(); ++count) {
        ForEachPowerCut(before, events, count, [&](const DiskState& disk) {
          ++states;
          const auto at = [&disk](const std::string& path) {
            return disk.contains(path) ? disk.at(path) : kNone;
          };
          ASSERT_THAT(at(save.Path), AnyOf(kOld, save.Fresh, kNone)) << failAt << " " << count;
          ASSERT_THAT(at(save.Backup), AnyOf(kOld, kOlder, kNone)) << failAt << " " << count;
          ASSERT_TRUE(at(save.Path) != kNone || at(save.Backup) == kOld) << failAt << " " << count;
          if (failAt != 0 || count < events.size()) return;
          ASSERT_EQ(at(save.Path), save.Fresh) << "the save has returned";
          ASSERT_EQ(at(save.Backup), kOld) << "the save has returned";
        });
      }
      if (!reached || HasFailure()) break;
    }
  }
  EXPECT_GT(states, 1000);
}

TEST(SaveFaults, ADeleteThroughTheQuickSaveFileReadsAWholeFileOrNone) {
  AtEveryCall([](FailingDisk& disk) {
    SiteRig rig;
    for (const char* main : {"a.example", "b.example", "c.example"}) rig.EnterMainSite(main);
    rig.Sites.SelectMainSite(1);
    disk.Lets([&] { rig.Controls.Deletion.cmdDelete(); });
    const std::string file = TextOf(rig.Folder.File("quicksave.qsv"));
    const bool whole = file.starts_with("a.example\r\nNEXTSITE:c.example\r\n") && file.ends_with("\r\n\r\n");
    EXPECT_TRUE(whole || file == kNone) << file;
    EXPECT_EQ(rig.Services.Dialogs.Boxes.size(), whole ? 0U : 1U);
    // The read back may be what fails; what it then leaves is an empty project.
    EXPECT_THAT(rig.Data.List4.RowCount(), whole ? AnyOf(2U, 0U) : AnyOf(0U, 0U));
    EXPECT_FALSE(rig.Data.ProjectSaved);
    EXPECT_EQ(UnfinishedFiles(rig.Folder.Folder.Path), 0);
  });
}

TEST(SaveFaults, OtherFilesKeepTheirOldTextOrGetTheWholeNewOne) {
  SiteRig rig;
  rig.EnterMainSite("main.example");
  rig.Controls.Sites.txtHTML1.SetText("the page");
  const auto file = [&rig](const std::string& name) { return rig.Folder.File(name); };
  WriteFile(file("tempreport.html"), "a report");
  struct Case {
    const char* File;
    std::function<void()> Save;
    std::string Fresh;
    const char* Typed = "";  ///< in the dialog
  };
  const std::vector<Case> cases{
      {"filetypes.txt",
       [&] {
         SaveFileTypes(rig.Folder.Folder, {".asp", ".php"});
       },
       ".asp\r\n.php\r\n"},
      {"Project Files/Recovered.prj", [&] { (void)WriteRecovered(rig.Data, rig.Folder.Folder, ""); },
       ProjectText(rig.Data) + "\r\n"},
      // Typed without its ending, the rows are added to.
      {"list.tab", [&] { rig.Controls.Saved.Command8a(); }, kOld + TabDelimitedText(rig.Data.List3), "list"},
      {"page.htm", [&] { rig.Controls.Saved.Command8(); }, "a report", "page"},
      {"link page", [&] { rig.Controls.Command6.Click(); }, rig.Controls.Pages.WebPage(), "link page"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.File);
    AtEveryCall([&](FailingDisk& disk) {
      WriteFile(file(each.File), kOld);
      fs::remove(file("Recovered.prj"));
      rig.Data.ProjectSaved = false;
      rig.Services.Dialogs.Names = {file(each.Typed)};
      rig.Services.Dialogs.Boxes.clear();
      const bool done = disk.Lets(each.Save);
      const std::string text = TextOf(file(each.File));
      EXPECT_THAT(text, AnyOf(kOld, each.Fresh));
      // A failure is told once, thrown or in a box; but never that of a copied report.
      const bool told = !done || !rig.Services.Dialogs.Boxes.empty();
      const bool copied =
          each.Fresh == "a report" || text == each.Fresh || TextOf(file("Recovered.prj")) == each.Fresh;
      EXPECT_TRUE(told || copied || std::string(each.File).ends_with("Recovered.prj"));
      EXPECT_LE(rig.Services.Dialogs.Boxes.size(), 1U);
      EXPECT_EQ(UnfinishedFiles(rig.Folder.Folder.Path), 0);
    });
  }
}

TEST(SaveFaults, TheReportsCopyNeverCostsAProjectWithoutASuffix) {
  AtEveryCall([](FailingDisk& disk) {
    SiteRig rig;
    const std::string path = rig.Folder.File("Project Files/partners");
    WriteFile(path, kOld);
    rig.Services.Store.Set("LastProject", path);
    disk.Lets([&] { rig.Controls.GenerateLinkReport(); });
    const std::string backup = rig.Folder.File("Backup/partners");
    EXPECT_TRUE(TextOf(path) == kOld || TextOf(backup) == kOld);
    // The next scan's copy replaces a report, which is not worth keeping.
    for (int scan = 0; scan < 2; ++scan) rig.Controls.GenerateLinkReport();
    EXPECT_TRUE(TextOf(path).starts_with("<html>"));
    EXPECT_EQ(TextOf(backup), kOld);
  });
}

TEST(SaveFaults, ModesAndOddTargetsAreKept) {
  ProjectSave save;
  save.LayOut(false);
  fs::permissions(save.Path, fs::perms::owner_read | fs::perms::owner_write);
  ASSERT_TRUE(save.Saves());
  for (const std::string& path : {save.Path, save.Backup}) {
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write) << path;
  }
  ASSERT_EQ(::mkfifo(save.Projects.File("pipe").c_str(), 0600), 0);
  save.Path = save.Projects.File("pipe");
  EXPECT_FALSE(save.Saves());
  EXPECT_TRUE(fs::is_fifo(save.Path));
}

}  // namespace
}  // namespace requite::test
