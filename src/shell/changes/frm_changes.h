// SPDX-License-Identifier: MIT
// The window that lists what has changed at the sites of the project since they were last scanned.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "history/change_list.h"
#include "history/change_words.h"
#include "model/project.h"
#include "model/record_list.h"
#include "model/settings.h"
#include "platform/files.h"
#include "platform/services.h"
#include "shell/changes/past_scans.h"
#include "shell/label.h"
#include "shell/program_window.h"

namespace requite {

/// All must outlive the window.
struct ChangesNeeds {
  const Project& Sites;
  const requite::Settings& Settings;
  const ProgramFolder& Folder;
  Services& Platform;
  std::function<std::string()> OpenPath;  ///< the file of the project; empty for one that was never saved
};

struct frmChanges : ProgramWindow {
  frmChanges(Windows& windows, ChangesNeeds needs);
  void Load() override;

  /// Reads the history again, and keeps filter, sort and selection. A history that cannot be read is said in
  /// `lblState`.
  void Read();
  /// Receives the path of the table that was saved. May be null.
  std::function<void(const std::string& path)> OnSaved;

  Label lblState{"lblState"};
  Button cmdOptions{"cmdOptions", "Options"};  ///< visible while the history is switched off
  Label lblFilter{"lblFilter", "Show:"};
  ComboBox cmbFilter{"cmbFilter"};
  Button cmdRefresh{"cmdRefresh", "Refresh"};
  RecordList<ChangeLine> lstChanges{"lstChanges"};
  PastScans picPast{"picPast"};
  Button cmdOpenPage{"cmdOpenPage", "Open Page"};
  Button cmdCopy{"cmdCopy", "Copy"};
  Button cmdSaveCsv{"cmdSaveCsv", "Save as CSV..."};
  Label lblWhy{"lblWhy", "Why:"};
  TextBox txtWhy{"txtWhy"};
  Button cmdKnown{"cmdKnown", "Mark as Known"};
  Button cmdTakeBack{"cmdTakeBack", "Take Back"};

 private:
  void BuildControls();
  void Wire();
  [[nodiscard]] std::string ReadList();
  [[nodiscard]] bool Passes(const SiteChange& change) const;
  void FillFilter();
  void FillList();
  void ShowSelected();
  void SelectAbout(int row);
  void SortBy(int column);
  [[nodiscard]] const SiteChange* ChangeAt(int row) const;
  [[nodiscard]] std::vector<const SiteChange*> SelectedChanges() const;
  void OpenPage();
  void Copy();
  void SaveCsv();
  void Mark(bool known);

  ChangesNeeds needs_;
  std::string project_;  ///< its name in the history
  ChangeList list_;      ///< also what is not told, because it may be marked as known
};

}  // namespace requite
