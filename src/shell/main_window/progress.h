// SPDX-License-Identifier: MIT
// "Scan Progress and Statistics", and the status bar at the bottom edge.
#pragma once

#include <array>

#include "model/project.h"
#include "results/statistics.h"
#include "shell/main_window/place.h"

namespace requite {

/// None of these has an action of its own: the scan and the statistics write them.
struct ProgressControls : Place {
  ProgressControls(ControlIndex& index, ScanLists& lists);

  Placed<Frame> Frame6{*this, {}, "Frame6", "Scan Progress and Statistics"};
  std::array<TextBox, Statistics::kLabels> lblStats;
  Placed<ProgressBar> pb1{*this, {.In = &Frame6}, "pb1"};
  Placed<StatusBar> StatusBar1{*this, {}, "StatusBar1"};
};

}  // namespace requite
