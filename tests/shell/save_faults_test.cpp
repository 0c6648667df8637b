// SPDX-License-Identifier: MIT
// Every save on a disk that fails at any one call, fills up at it, or loses power after it: nothing of
// the user's is lost, and no piece of a file is left anywhere.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "model/file_types.h"
#include "model/project_text.h"
#include "model/quick_save.h"
#include "model/site_rig.h"
#include "platform/whole_file.h"
#include "results/report.h"
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
      for (const Fault fault : kFaults) {
        ProjectSave save(elsewhere);
        if (linked) {
          fs::create_symlink(save.Projects.File("real"), save.Projects.File("link.prj"));
          save.Path = save.Projects.File("link.prj");
          save.Backup = save.Folder.File("Backup/link.prj");
        }
        const int calls = AtEveryCall(fault, [&](int failAt, Fault kind) {
          save.LayOut(failAt % 2 == 0);
          bool saved = false;
          bool reached = false;
          {
            const FileFaults faults(failAt, kind);
            saved = save.Saves();
            reached = faults.Reached();
          }
          save.ExpectNothingLost(saved);
          EXPECT_TRUE(save.Saves()) << "the disk is well again";
          EXPECT_EQ(TextOf(save.Path), save.Fresh);
          EXPECT_THAT(TextOf(save.Backup), AnyOf(kOld, save.Fresh)) << "no piece of a failed save";
          EXPECT_EQ(fs::is_symlink(save.Path), linked);
          return reached;
        });
        EXPECT_GT(calls, 10);
      }
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
  for (const Fault fault : kFaults) {
    AtEveryCall(fault, [](int failAt, Fault kind) {
      SiteRig rig;
      QuickSave quick{rig.Data,          rig.Sites, rig.Files, rig.Controls.innerFrame2, rig.Services.Dialogs,
                      rig.Folder.Folder, [] {}};
      for (const char* main : {"a.example", "b.example", "c.example"}) rig.EnterMainSite(main);
      rig.Sites.SelectMainSite(1);
      bool reached = false;
      {
        const FileFaults faults(failAt, kind);
        quick.cmdDelete();
        reached = faults.Reached();
      }
      const std::string file = TextOf(rig.Folder.File("quicksave.qsv"));
      const bool whole =
          file.starts_with("a.example\r\nNEXTSITE:c.example\r\n") && file.ends_with("\r\n\r\n");
      EXPECT_TRUE(whole || file == kNone) << file;
      EXPECT_EQ(rig.Services.Dialogs.Boxes.size(), whole ? 0U : 1U);
      // The read back may be what fails; what it then leaves is an empty project.
      EXPECT_THAT(rig.Data.List4.RowCount(), whole ? AnyOf(2U, 0U) : AnyOf(0U, 0U));
      EXPECT_FALSE(rig.Data.ProjectSaved);
      EXPECT_EQ(UnfinishedFiles(rig.Folder.Folder.Path), 0);
      return reached;
    });
  }
}

TEST(SaveFaults, OtherFilesKeepTheirOldTextOrGetTheWholeNewOne) {
  TemporaryFolder folder;
  ScriptedDialogs dialogs;
  RecordList<LinkResult> list3("List3");
  const WorkFolder work(folder.Folder);
  SavedFiles saved(list3, work, dialogs);
  Project project;
  project.AddMainSite("main.example");
  const std::string table = TabDelimitedText(list3);
  WriteFile(folder.File("tempreport.html"), "a report");
  struct Case {
    const char* File;
    std::function<void()> Save;
    std::string Fresh;
  };
  const std::vector<Case> cases{
      {"filetypes.txt",
       [&] {
         SaveFileTypes(folder.Folder, {".asp", ".php"});
       },
       ".asp\r\n.php\r\n"},
      {"Project Files/Recovered.prj", [&] { (void)WriteRecovered(project, folder.Folder, ""); },
       ProjectText(project) + "\r\n"},
      {"list.tab", [&] { saved.Command8a(); }, kOld + table},  // typed without its ending: added to
      {"page.htm", [&] { saved.Command8(); }, "a report"},
  };
  for (const Case& each : cases) {
    for (const Fault fault : kFaults) {
      SCOPED_TRACE(each.File);
      AtEveryCall(fault, [&](int failAt, Fault kind) {
        WriteFile(folder.File(each.File), kOld);
        fs::remove(folder.File("Recovered.prj"));
        project.ProjectSaved = false;
        dialogs.Names = {folder.File(each.File).substr(0, folder.File(each.File).size() - 4)};
        dialogs.Boxes.clear();
        bool reached = false;
        bool done = false;
        {
          const FileFaults faults(failAt, kind);
          done = PassOver(each.Save);
          reached = faults.Reached();
        }
        const std::string text = TextOf(folder.File(each.File));
        EXPECT_THAT(text, AnyOf(kOld, each.Fresh));
        // A failure is told once, thrown or in a box; but never that of a copied report.
        const bool told = !done || !dialogs.Boxes.empty();
        const bool copied = each.Fresh == "a report" || text == each.Fresh ||
                            TextOf(folder.File("Recovered.prj")) == each.Fresh;
        EXPECT_TRUE(told || copied || std::string(each.File).ends_with("Recovered.prj"));
        EXPECT_LE(dialogs.Boxes.size(), 1U);
        EXPECT_EQ(UnfinishedFiles(folder.Folder.Path), 0);
        return reached;
      });
    }
  }
}

TEST(SaveFaults, TheReportsCopyNeverCostsAProjectWithoutASuffix) {
  for (const Fault fault : kFaults) {
    AtEveryCall(fault, [](int failAt, Fault kind) {
      SiteRig rig;
      RecordList<ErrorEntry> lstErr("lstErr");
      std::array<TextBox, 7> labels{TextBox("0"), TextBox("1"), TextBox("2"), TextBox("3"),
                                    TextBox("4"), TextBox("5"), TextBox("6")};
      Window form1("Form1");
      const Settings settings(rig.Services.Store);
      const Statistics counters(settings, labels, form1);
      const WorkFolder work(rig.Folder.Folder);
      LinkReport report({rig.Data, lstErr, counters, settings, rig.Services.Clock, rig.Services.EventLoop,
                         rig.Folder.Folder, work, rig.WebBrowser2});
      const std::string path = rig.Folder.File("Project Files/partners");
      WriteFile(path, kOld);
      rig.Services.Store.Set("LastProject", path);
      bool reached = false;
      {
        const FileFaults faults(failAt, kind);
        PassOver([&] { report.GenerateLinkReport(); });
        reached = faults.Reached();
      }
      const std::string backup = rig.Folder.File("Backup/partners");
      EXPECT_TRUE(TextOf(path) == kOld || TextOf(backup) == kOld);
      // The next scan's copy goes over a report, which is not worth keeping.
      report.GenerateLinkReport();
      report.GenerateLinkReport();
      EXPECT_TRUE(TextOf(path).starts_with("<html>"));
      EXPECT_EQ(TextOf(backup), kOld);
      return reached;
    });
  }
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
