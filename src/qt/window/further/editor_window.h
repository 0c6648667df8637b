// SPDX-License-Identifier: MIT
// The three editors of sites and rules, on screen.
#pragma once

#include "qt/window/further/further_window.h"
#include "shell/editors/form2.h"

class QLayout;

namespace requite {

class EditorView final : public FurtherWindow {
 public:
  EditorView(Form2& editor, const WindowSurroundings& surroundings);

 private:
  QLayout* BuildFields();
  QLayout* BuildRuleTypes();
  QLayout* BuildValue();
  QLayout* BuildEnd();

  Form2& editor_;
};

}  // namespace requite
