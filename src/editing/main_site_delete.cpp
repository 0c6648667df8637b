// SPDX-License-Identifier: MIT
// The steps of a delete, and the temporary project file that it writes and reads back.
#include "editing/main_site_delete.h"

#include <string>

#include "model/project_reader.h"
#include "model/project_text.h"
#include "platform/failure_box.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"
#include "platform/whole_file.h"

namespace requite {

void MainSiteDelete::cmdDelete() {
  const int row = project_.List4.SelectedRow();
  RemoveRulesOfSelected();
  project_.ProjectSaved = false;
  if (project_.List4.RowCount() == 1) {
    project_.List4.Clear();
    project_.DropLinkingSiteLists();
    innerFrame2_.SetVisible(false);
  } else if (row >= 0) {
    // The file is read back even when it could not be written.
    PassOver([&] { QuickSaveProject(row); });
    QuickLoadProject();
  }
}

void MainSiteDelete::RemoveRulesOfSelected() {
  const int row = project_.List4.SelectedRow();
  if (row < 0) return;
  // Main Sites with the same text share their rules, so the others lose them too.
  const std::string text = project_.List4.At(static_cast<std::size_t>(row)).Text;
  project_.lstRules.RemoveWhere([&](const Rule& rule) { return rule.MainSite == text; });
}

bool MainSiteDelete::QuickSaveProject(int leaveOutRow) {
  const std::string path = folder_.File(kQuickSaveFile);
  if (FileExists(path)) DeleteFile(path);
  const auto write = [&] {
    std::string text = ProjectText(project_, leaveOutRow);
    text += kLineEnd;
    // It is read back at once and never again, so it need not be flushed to the disk.
    WriteWhole(path, text, Flush::No);
  };
  return EndInBox(dialogs_, write, [](const RuntimeFailure& failure) -> MessageBox {
    return {std::to_string(failure.Number) + " " + failure.Description};
  });
}

bool MainSiteDelete::QuickLoadProject() {
  sites_.NewProject();
  bool reachedEnd = false;
  EndSilently([&] {
    const std::string text = ReadFile(folder_.File(kQuickSaveFile));
    if (text.empty()) return;
    project_.ProjectSaved = files_.LastOpenWasProject;
    project_.JustLoaded = true;
    reachedEnd = ReadProjectText(text, project_);
    if (!reachedEnd) return;
    if (!project_.List4.Empty()) sites_.SelectMainSite(0);
    generateLinkReport_();
  });
  return reachedEnd;
}

}  // namespace requite
