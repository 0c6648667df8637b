// SPDX-License-Identifier: MIT
// The menus of the main window.
#include "shell/main_window/form1.h"

namespace requite {
namespace {

/// Entries of the File menu.
enum : int { kNewProject, kOpenProject, kImportProject, kSaveProject, kExit };

}  // namespace

void Form1::WireMenus() {
  mnuFile.OnClick = [this](int index) { mnuFile_Click(index); };
  mnuScan.OnClick = [this](int index) { mnuScanItem_Click(index); };
  mnuSkipPopup.OnClick = [this](int index) { mnuSkipItem_Click(index); };
  mnuHelp.OnClick = [this](int) { OpenHelp(); };
}

void Form1::mnuFile_Click(int index) {
  // The entries stay usable during a scan, unlike the buttons that do the same.
  switch (index) {
    case kNewProject: Files.cmdNew(); break;
    case kOpenProject:
    case kImportProject:
      Files.LastOpenWasProject = index == kOpenProject;
      Files.cmdOpen();
      break;
    case kSaveProject: Files.cmdSave(); break;
    case kExit: Close(); break;
    default: break;
  }
}

void Form1::mnuScanItem_Click(int index) {
  mnuScan.CheckOnly(index);
  Settings.SaveSetting(setting::ScanType, index);
}

void Form1::mnuSkipItem_Click(int index) {
  mnuSkipPopup.CheckOnly(index);
  Settings.SaveSetting(setting::SkipType, index);
}

}  // namespace requite
