// SPDX-License-Identifier: MIT
// What is done with each control of a place as it is made.
#include "shell/main_window/place.h"

namespace requite {

void Place::Begin(Control& control, const Begins& begins) {
  control.ToolTip = begins.Tip;
  control.SetFrame(begins.In != nullptr ? begins.In : around_);
  control.SetEnabled(begins.Enabled);
  control.SetVisible(begins.Visible && (isShown_ || !begins.OnTab));
  if (begins.OnTab) onTab_.push_back(&control);
}

void Place::Take(Control& control, const Begins& begins) {
  Begin(control, begins);
  index_.Add(control);
}

void Place::Take(OptionGroup& group, const Begins& begins) {
  Begin(group, begins);
  index_.Add(group);
}

void Place::Take(Menu& menu, const Begins& begins) {
  Begin(menu, begins);
  index_.Add(menu, begins.Entries);
}

void Place::TakeLabel(TextBox& label, const Begins& begins) {
  Begin(label, begins);
  index_.AddLabel(label);
}

void Place::ShowOnTab(bool isShown) {
  for (Control* each : onTab_) each->SetVisible(isShown);
}

}  // namespace requite
