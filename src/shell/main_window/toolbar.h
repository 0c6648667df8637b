// SPDX-License-Identifier: MIT
// The tool bar of the main window, from left to right.
#pragma once

#include "shell/main_window/place.h"
#include "shell/product.h"

namespace requite {

/// The buttons that save results carry these words too, although they save no project.
inline constexpr std::string_view kSaveTip = "Save this project to a file so that you can run it any time";

struct ToolbarControls : Place {
  explicit ToolbarControls(ControlIndex& index) : Place(index) {}
  void Wire(Form1& form);

  Placed<Button> Command1{*this, {.Tip = "Begin searching for links"}, "Command1", "Start Scan"};
  Placed<Button> Command10{*this, {.Tip = "Change the scan type"}, "Command10", "V"};
  Placed<Button> cmdSkip{
      *this, {.Tip = "Skip the current Linking Site", .Enabled = false}, "cmdSkip", "Skip"};
  Placed<Button> cmdStop{*this, {.Tip = "Stop scanning for links", .Enabled = false}, "cmdStop", "Stop"};
  Placed<Button> Command9{*this, {.Tip = "Open the options menu"}, "Command9", "Options"};
  Placed<Button> cmdOpen{*this, {.Tip = "Open an existing project"}, "cmdOpen", "Open"};
  Placed<Button> cmdSave{*this, {.Tip = kSaveTip}, "cmdSave", "Save"};
  Placed<Button> cmdNew{*this, {.Tip = "Clear all data and create a new project"}, "cmdNew", "New"};
  Placed<Button> cmdWebsite{
      *this, {.Tip = "Open Browser"}, "cmdWebsite", "Visit " + std::string(product::kSite)};
};

}  // namespace requite
