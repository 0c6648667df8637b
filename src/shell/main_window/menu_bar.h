// SPDX-License-Identifier: MIT
// The menu bar of the main window.
#pragma once

#include "shell/main_window/place.h"

namespace requite {

/// The entries of mnuFile.
enum class FileEntry { NewProject = 0, OpenProject = 1, ImportProject = 2, SaveProject = 3, Exit = 4 };

struct MenuBarControls : Place {
  explicit MenuBarControls(ControlIndex& index) : Place(index) {}
  void Wire(Form1& form);

  Placed<Menu> mnuFile{*this,
                       {.Entries = "mnuFile"},
                       "mnuFile",
                       "File",
                       Captions{"New Project", "Open Project", "Import Project", "Save Project", "Exit"}};
  Placed<Menu> mnuScan{*this,
                       {.Entries = "mnuScanItem"},
                       "mnuScan",
                       "Scan Type",
                       Captions{"Scan all main sites", "Just scan the selected main site",
                                "Just scan the selected linking site"}};
  Placed<Menu> mnuHelp{*this, {.Entries = "mnuHelp"}, "mnuHelp", "Help", Captions{"View Help File"}};
  Placed<Menu> mnuAbout{*this, {.Entries = "mnuAbout"}, "mnuAbout", "About", Captions{"About this software"}};
};

}  // namespace requite
