// SPDX-License-Identifier: MIT
// The tab "Pages": the Page Builder.
#pragma once

#include "model/project.h"
#include "shell/label.h"
#include "shell/main_window/place.h"

namespace requite {

struct PagesControls : Place {
  PagesControls(ControlIndex& index, const Frame& around, Project& project);
  void Wire(Form1& form);
  /// Adds the Main Sites to Combo3 again at each visit: the repeats stay, only its text counts.
  void OnShown(const Project& project);

  Placed<Frame> Frame5{*this, {.OnTab = true}, "Frame5", "Page Builder"};
  Placed<Label> Label11{*this, {.In = &Frame5}, "Label11", "Pre-Links HTML"};
  Placed<Label> Label12{*this, {.In = &Frame5}, "Label12", "Generated Links"};
  Placed<Label> Label10{*this, {.In = &Frame5}, "Label10", "Pre-Link HTML"};
  Placed<Label> Label13{*this, {.In = &Frame5}, "Label13", "Options"};
  Placed<OptionGroup> optAll{
      *this, {.In = &Frame5}, "optAll", Captions{"Generate links for all Main Sites", "Generate links for:"}};
  Placed<ComboBox> Combo3{*this, {.In = &Frame5}, "Combo3", "Select"};
  Placed<CheckBox> chkNewWin{*this, {.In = &Frame5}, "chkNewWin", "Links open in new window"};
  Placed<CheckBox> chkBullet{*this, {.In = &Frame5}, "chkBullet", "Bulleted List"};
  Placed<Button> Command5{*this, {.In = &Frame5}, "Command5", "Generate Links"};
  Placed<Button> Command6{*this, {.In = &Frame5}, "Command6", "Save Webpage"};
};

}  // namespace requite
