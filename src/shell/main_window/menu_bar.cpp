// SPDX-License-Identifier: MIT
// What the entries of the menu bar do.
#include "shell/main_window/menu_bar.h"

#include "shell/main_window/form1.h"

namespace requite {
namespace {

/// The entries stay usable during a scan, unlike the buttons that do the same.
void ClickFileEntry(Form1& form, FileEntry entry) {
  switch (entry) {
    case FileEntry::NewProject: return form.Files.cmdNew();
    case FileEntry::OpenProject:
    case FileEntry::ImportProject:
      form.Files.LastOpenWasProject = entry == FileEntry::OpenProject;
      return form.Files.cmdOpen();
    case FileEntry::SaveProject: return form.Files.cmdSave();
    case FileEntry::Exit: return form.Close();
  }
}

}  // namespace

void MenuBarControls::Wire(Form1& form) {
  mnuFile.OnClick = [&form](int index) { ClickFileEntry(form, static_cast<FileEntry>(index)); };
  mnuScan.OnClick = [this, &form](int index) {
    mnuScan.CheckOnly(index);
    form.Settings.SaveSetting(setting::ScanType, index);
  };
  mnuHelp.OnClick = [&form](int) { form.OpenHelp(); };
  mnuAbout.OnClick = [&form](int) { form.Windows.Show("frmAbout"); };
}

}  // namespace requite
