// SPDX-License-Identifier: MIT
// The tab "Post": the script URLs that the results are posted to.
#pragma once

#include "model/project.h"
#include "shell/label.h"
#include "shell/main_window/place.h"

namespace requite {

struct PostControls : Place {
  PostControls(ControlIndex& index, const Frame& around, Project& project);
  void Wire(Form1& form);
  /// Fills cmbSites with the Main Sites of now; its text stays.
  void OnShown(const Project& project);

  Placed<Frame> framePost{*this, {.OnTab = true}, "framePost"};
  Placed<Label> SkinLabel9{*this, {.OnTab = true}, "SkinLabel9"};
  Placed<OptionGroup> optScript{
      *this,
      {.In = &framePost},
      "optScript",
      Captions{"Post results to one URL only:", "Post results to a different URL for each Main Site:"}};
  Placed<ComboBox> cmbSites{*this, {.In = &framePost}, "cmbSites", "Select"};
  Placed<TextBox> txtPost2{*this, {.In = &framePost}, "txtPost2", "http://"};
  Placed<Button> cmdScriptAdd{
      *this, {.Tip = "Add a new Script URL", .In = &framePost}, "cmdScriptAdd", "Add"};
  Placed<Button> cmdScriptDel{
      *this, {.Tip = "Delete the selected script URL", .In = &framePost}, "cmdScriptDel", "Del"};
  Placed<Button> cmdPost{*this, {.In = &framePost}, "cmdPost", "Post Links Now"};
  Placed<Button> cmdVariables{*this, {.In = &framePost}, "cmdVariables", "View URL Variables"};
  Placed<Button> cmdExample{*this, {.In = &framePost}, "cmdExample", "View Example"};
};

}  // namespace requite
