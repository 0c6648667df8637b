// SPDX-License-Identifier: MIT
// The windows of the harvesters, on screen.
#pragma once

#include "qt/window/further/further_window.h"
#include "shell/harvest_windows/form3.h"
#include "shell/harvest_windows/frm_export.h"

namespace requite {

class ExportView final : public FurtherWindow {
 public:
  ExportView(frmExport& window, const WindowSurroundings& surroundings);
};

/// Shows the progress of a harvest. Its browser view stays empty, because the pages are read and not
/// displayed. Hides when the harvest hides its window.
class HarvestView final : public FurtherWindow {
 public:
  HarvestView(Form3& window, const WindowSurroundings& surroundings);
};

}  // namespace requite
