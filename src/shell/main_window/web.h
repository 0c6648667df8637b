// SPDX-License-Identifier: MIT
// The tab "Web": a browser with its address bar.
#pragma once

#include "shell/main_window/place.h"

namespace requite {

struct WebControls : Place {
  WebControls(ControlIndex& index, const Frame& around) : Place(index, &around, false) {}
  void Wire();

  Placed<BrowserView> WebBrowser1{*this, {.OnTab = true}, "WebBrowser1"};
  Placed<Button> cmdBack{*this, {.Tip = "back", .OnTab = true}, "cmdBack", "Back"};
  Placed<Button> cmdForward{*this, {.Tip = "forward", .OnTab = true}, "cmdForward", "Forward"};
  Placed<Button> cmdWebStop{*this, {.Tip = "stop", .OnTab = true}, "cmdWebStop", "Stop"};
  Placed<Button> cmdRefresh{*this, {.Tip = "refresh", .OnTab = true}, "cmdRefresh", "Refresh"};
  Placed<Button> cmdGo{*this, {.Tip = "browse the entered url", .OnTab = true}, "cmdGo", "Go"};
  Placed<TextBox> txtURL{*this, {.OnTab = true}, "txtURL"};
};

}  // namespace requite
