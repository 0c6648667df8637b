// SPDX-License-Identifier: MIT
// What the buttons of the tool bar do.
#include "shell/main_window/toolbar.h"

#include "shell/main_window/form1.h"

namespace requite {

void ToolbarControls::Wire(Form1& form) {
  Command1.OnClick = [&form] { form.StartScan(); };
  Command10.OnClick = [&form] { form.mnuScan.PopUp(); };
  cmdSkip.OnClick = [&form] { form.SkipSite(); };
  cmdStop.OnClick = [&form] { form.StopScan(); };
  Command9.OnClick = [&form] { form.Windows.Show("frmOptions"); };
  cmdOpen.OnClick = [&form] { form.Files.cmdOpen(); };
  cmdSave.OnClick = [&form] { form.Files.cmdSave(); };
  cmdNew.OnClick = [&form] { form.Files.cmdNew(); };
  cmdWebsite.OnClick = [&form] { form.Windows.Show("frmWebsite"); };
}

}  // namespace requite
