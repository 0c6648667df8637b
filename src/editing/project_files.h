// SPDX-License-Identifier: MIT
// Saving and loading project files, and the New, Open and Save commands around them.
#pragma once

#include <string>
#include <string_view>

#include "editing/site_editing.h"
#include "model/project.h"
#include "model/settings.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "platform/services.h"

namespace requite {

/// The folder for project files, under the program's folder.
inline constexpr std::string_view kProjectFilesFolder = "Project Files";

/// Is told what happens to the project on show. Must not throw, and lets no events run.
class ProjectWatcher {
 public:
  virtual ~ProjectWatcher() = default;
  /// The project is about to be replaced, by New or by a load.
  virtual void ProjectLeaves() = 0;
  virtual void ProjectIsNew() = 0;
  /// `whole` is false when only a part of the file could be read, or nothing of it.
  virtual void ProjectIsOpened(const std::string& path, bool whole) = 0;
  virtual void ProjectIsSaved(const std::string& path) = 0;
};

class ProjectFiles {
 public:
  ProjectFiles(Project& project, SiteEditing& sites, const Settings& settings, Dialogs& dialogs,
               const ProgramFolder& folder, BrowserView& webBrowser2)
      : project_(project),
        sites_(sites),
        settings_(settings),
        dialogs_(dialogs),
        folder_(folder),
        WebBrowser2_(webBrowser2) {}

  /// Replaces the file at `path`; on return the new one is on the disk, and the old one is in the
  /// folder "Backup" of the program's folder. On success ProjectSaved is set and the path becomes the
  /// setting LastProject. Throws RuntimeFailure when the file system refuses, also for a
  /// write-protected file. After a failure to write there is no file at `path`: the old one is in "Backup".
  void SaveProject(const std::string& path);

  /// Whether a load empties the project before it reads. Every command passes Yes. No is kept, with
  /// what it leaves unset, because it belongs to the name LoadProject.
  enum class ClearFirst { No, Yes };

  /// Reads a project file, makes its path the setting LastProject, selects the first Main Site and
  /// shows the project's report. Any failure ends the load silently, keeps what was read so far and
  /// skips the last two steps.
  void LoadProject(const std::string& path, ClearFirst clearFirst = ClearFirst::Yes);

  /// Replaces the project with one that was kept unsaved, whose text this is. It counts as edited, and as the
  /// project of the file at `path`, which may be empty. A text that the writer of project files did not write
  /// is read as far as LoadProject would.
  void BringBack(const std::string& text, const std::string& path);

  /// Shows the report found by appending all of `path` to the folder for project files, else
  /// "about:blank". A full path is never found that way: the report view must stay empty for it.
  void ShowProjectReport(const std::string& path);

  /// The commands. None of them asks before it discards unsaved work.
  void cmdNew();
  void cmdOpen();
  /// A second failure to save is thrown.
  void cmdSave();

  /// The file of the project on show; empty for a new project that was never saved, or when the last load
  /// could not read its file. The setting LastProject also survives these.
  [[nodiscard]] const std::string& OpenPath() const { return openPath_; }

  /// Not owned; may be null, as it is in a scan from a command line.
  ProjectWatcher* Watcher = nullptr;

  /// Set by Open Project, cleared by Import Project; otherwise these two commands are the same.
  bool LastOpenWasProject = false;

 private:
  void Empty();
  [[nodiscard]] std::string DefaultSaveName() const;
  void AskAndSave(const std::string& defaultName);
  [[nodiscard]] FileDialog ProjectDialog(std::string defaultName) const;

  Project& project_;
  SiteEditing& sites_;
  Settings settings_;
  Dialogs& dialogs_;
  const ProgramFolder& folder_;
  BrowserView& WebBrowser2_;
  std::string openPath_;
};

}  // namespace requite
