// SPDX-License-Identifier: MIT
// The scanning options. Each control saves its setting as soon as it changes.
#pragma once

#include <array>
#include <string>

#include "model/file_types.h"
#include "model/page_limits.h"
#include "model/record_list.h"
#include "model/settings.h"
#include "platform/controls.h"
#include "platform/services.h"
#include "shell/label.h"
#include "shell/program_window.h"

namespace requite {

/// One line of `filetypes.txt`.
struct FileType {
  std::string Text;

  static constexpr std::array<Column<FileType>, 1> Columns() { return {{{"File Type", &FileType::Text}}}; }
};

/// The options window. There is no OK and no Cancel: changes are saved at once.
struct frmOptions : ProgramWindow {
  /// `settings`, `folder` and `dialogs` must outlive the window.
  frmOptions(Windows& windows, Settings& settings, const ProgramFolder& folder, Dialogs& dialogs);
  /// Reads all settings and the file types. Filling a control runs its action, so the first opening stores
  /// the defaults. Throws RuntimeFailure for a setting that is not a number, a position that cmbAdvance
  /// does not have, and a list of file types that cannot be read.
  void Load() override;

  Frame Frame1{"Frame1"};

  Label Label6{"Label6", "Go to the next site:"};
  CheckBox chkAuto2{"chkAuto2", ""};
  Label Label9{"Label9", "When the expected number of links has been found"};
  CheckBox chkAuto{"chkAuto", ""};
  Label Label7{"Label7", "When this many pages have been scanned:"};
  ComboBox cmbAdvance{"cmbAdvance", "", PageLimitCaptions()};
  Label Label18{"Label18", "Redirected Links:"};
  CheckBox chkRedirect{"chkRedirect", ""};
  Label Label19{"Label19", "Attempt to find links that go through a redirect script"};
  Label Label5_4{"Label5(4)", "Play Audio:"};
  CheckBox chkAudioEmail{"chkAudioEmail", "On Link Found"};
  CheckBox chkAudioNext{"chkAudioNext", "On Next Website"};
  CheckBox chkAudioFinished{"chkAudioFinished", "On Finished"};
  Label Label20{"Label20", "Timeout when pages don't respond:"};
  Label Label21{"Label21", "After               seconds"};  // txtTimeout is shown in the gap
  TextBox txtTimeout{"txtTimeout"};
  Label Label5_3{"Label5(3)", "Logging:"};
  CheckBox chkLog{"chkLog", "Log rules to rules.log in the program folder"};
  CheckBox chkHistory{"chkHistory", "Keep a history of scans"};
  Label Label5_5{"Label5(5)", "Efficiency:"};
  CheckBox chkUpdate{"chkUpdate",
                     "When a link is found, automatically update the Linking Site URL in my project."};

  Label Label5_1{"Label5(1)", "Webpage File Types:"};
  CheckBox chkFileTypes{"chkFileTypes", "chkOnlyScan"};  // the window shows no caption for it
  TextBox txtDomain{"txtDomain"};
  Button cmdAdd2{"cmdAdd2", "Add"};
  Button cmdDelete{"cmdDelete", "Delete"};
  RecordList<FileType> List1{"List1"};
  Label Label5_2{"Label5(2)", "Global Rules:"};
  Label Label2;
  Button Command1{"Command1", "Open Global Rules Editor"};

  Label lblSitesAtATime{"lblSitesAtATime", "Sites at a time:"};
  TextBox SitesAtATime{"SitesAtATime"};

  Label lblSecure{"lblSecure", "Secure connections:"};
  CheckBox chkSecure{"chkSecure", "Ask for pages over HTTPS where a site offers it"};
  Label lblUserAgent{"lblUserAgent", "Name given to sites:"};
  TextBox txtUserAgent{"txtUserAgent"};

  // Never shown; each keeps its action for scripts
  Label Label5_0{"Label5(0)", "Auto Save:"};
  CheckBox chkAutoSave{"chkAutoSave", "Check1"};
  Label Label1{"Label1", "Every              minutes while scanning"};
  TextBox txtAutoSave{"txtAutoSave"};

 private:
  struct CheckSetting {
    CheckBox& Box;
    const SettingKey& Key;
  };

  /// Every check box with its key, in the order in which they are read.
  [[nodiscard]] std::array<CheckSetting, 12> Checks();
  void BuildControls();
  void Wire();
  void AddFileType();
  void DeleteFileType();
  void SaveList();
  void txtTimeout_Change();
  void txtAutoSave_Change();
  void txtUserAgent_Change();
  void SitesAtATime_Change();

  Settings& settings_;
  const ProgramFolder& folder_;
  Dialogs& dialogs_;
};

}  // namespace requite
