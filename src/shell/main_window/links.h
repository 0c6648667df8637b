// SPDX-License-Identifier: MIT
// The tab "Links": the results, and the errors and warnings below them.
#pragma once

#include "model/project.h"
#include "shell/label.h"
#include "shell/main_window/place.h"
#include "shell/main_window/results_popup.h"

namespace requite {

/// The tab that is on show at first.
struct LinksControls : Place {
  LinksControls(ControlIndex& index, const Frame& around, Project& project, ScanLists& lists);
  void Wire(Form1& form);

  Placed<Label> lblErr{*this, {.OnTab = true}, "lblErr", "Errors/Warnings:"};
  Placed<Menu> Popup2{
      *this, {.Visible = false, .Entries = "mnuPopup2Item"}, "Popup2", "", ResultsPopup::Captions()};
};

}  // namespace requite
