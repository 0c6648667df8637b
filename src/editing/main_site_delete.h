// SPDX-License-Identifier: MIT
// Deleting a Main Site: the project is written without it and read back, which renumbers the lists.
#pragma once

#include <functional>
#include <string_view>
#include <utility>

#include "editing/project_files.h"
#include "editing/site_editing.h"
#include "model/project.h"
#include "platform/files.h"
#include "platform/services.h"

namespace requite {

/// The temporary file of a delete. It has the form of a project file; it is not a backup.
inline constexpr std::string_view kQuickSaveFile = "quicksave.qsv";

class MainSiteDelete {
 public:
  /// `generateLinkReport` writes the report again after a load.
  MainSiteDelete(Project& project, SiteEditing& sites, const ProjectFiles& files, Frame& innerFrame2,
                 Dialogs& dialogs, const ProgramFolder& folder, std::function<void()> generateLinkReport)
      : project_(project),
        sites_(sites),
        files_(files),
        innerFrame2_(innerFrame2),
        dialogs_(dialogs),
        folder_(folder),
        generateLinkReport_(std::move(generateLinkReport)) {}

  /// Deletes the selected Main Site with its rules and Linking Sites; its results stay. Whatever a
  /// project file does not keep is lost for the whole project. The only Main Site is deleted without the
  /// file, even when it is not selected.
  void cmdDelete();

  /// Writes the project without one Main Site, by its row in List4 counted from 0. Returns whether the
  /// file was written. A message box reports a failure, which leaves no file. Throws when the old file cannot
  /// be removed.
  bool QuickSaveProject(int leaveOutRow);

  /// Replaces the project with the file's. Returns whether the end of the file was reached; a failure
  /// leaves what was read so far, which is nothing when there is no file. Whether the project then
  /// counts as saved depends on how it was opened, and on nothing else.
  bool QuickLoadProject();

 private:
  void RemoveRulesOfSelected();

  Project& project_;
  SiteEditing& sites_;
  const ProjectFiles& files_;
  Frame& innerFrame2_;
  Dialogs& dialogs_;
  const ProgramFolder& folder_;
  std::function<void()> generateLinkReport_;
};

}  // namespace requite
