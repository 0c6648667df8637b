// SPDX-License-Identifier: MIT
// The text of a control, for the commands that print it.
#pragma once

#include <optional>
#include <string>

#include "shell/control_index.h"

namespace requite {

/// The text of a text box, label or combo box, the caption of a button, frame or menu entry, 0 or 1
/// of a check box or option, a panel of a status bar (by default the first), the value of a progress
/// bar, the location of a browser view, the title of a window. Nothing for controls without a text.
[[nodiscard]] std::optional<std::string> ControlText(const NamedControl& control, int panel = 1);

/// The check mark of a menu entry, check box or option; nothing for other controls.
[[nodiscard]] std::optional<bool> ControlChecked(const NamedControl& control);

/// "enabled" or "disabled", a blank, "visible" or "hidden". The state of its frames counts.
[[nodiscard]] std::string ControlState(const Control& control);

}  // namespace requite
