// SPDX-License-Identifier: MIT
// The tab "Reports": the report of the last scan, and the two ways to save the results.
#pragma once

#include "shell/main_window/place.h"
#include "shell/main_window/toolbar.h"

namespace requite {

struct ReportsControls : Place {
  ReportsControls(ControlIndex& index, const Frame& around) : Place(index, &around, false) {}
  void Wire(Form1& form);

  Placed<BrowserView> WebBrowser2{*this, {.OnTab = true}, "WebBrowser2"};
  Placed<Button> Command8{*this, {.Tip = kSaveTip, .OnTab = true}, "Command8", "Save Report As"};
  Placed<Button> Command8a{*this, {.Tip = kSaveTip, .OnTab = true}, "Command8a", "Save Tab Delimited"};
};

}  // namespace requite
