// SPDX-License-Identifier: MIT
// The changes since the last scan, on screen.
#pragma once

#include "qt/window/further/further_window.h"
#include "shell/changes/frm_changes.h"

namespace requite {

class ChangesView final : public FurtherWindow {
 public:
  ChangesView(frmChanges& changes, const WindowSurroundings& surroundings);

 private:
  QLayout* BuildFilter();
  QTableView* BuildList();
  QLayout* BuildCommands();

  frmChanges& changes_;
};

}  // namespace requite
