// SPDX-License-Identifier: MIT
// The scanning options, on screen.
#pragma once

#include "qt/window/further/further_window.h"
#include "shell/options/frm_options.h"

class QCheckBox;
class QVBoxLayout;

namespace requite {

/// A label beside a check box without text is drawn as its text, with the label's tool tip.
class OptionsView final : public FurtherWindow {
 public:
  OptionsView(frmOptions& options, const WindowSurroundings& surroundings);

 private:
  QWidget* BuildLeft();
  QWidget* BuildRight();
  QLayout* BuildPageLimit();
  QLayout* BuildTimeout();
  QLayout* BuildSitesAtATime();
  QLayout* BuildFileTypes();
  QLayout* BuildVisitorName();
  QCheckBox* NewCheck(CheckBox& control, QChar letter);
  QCheckBox* NewCheck(CheckBox& control, const TextBox& label, QChar letter);

  frmOptions& options_;
};

}  // namespace requite
