// SPDX-License-Identifier: MIT
// The commands that save results.
#include "shell/main_window/reports.h"

#include "shell/main_window/form1.h"

namespace requite {

void ReportsControls::Wire(Form1& form) {
  Command8.OnClick = [&form] { form.Saved.Command8(); };
  Command8a.OnClick = [&form] { form.Saved.Command8a(); };
}

}  // namespace requite
