// SPDX-License-Identifier: MIT
// How texts of any origin are shown in one line of a list, a panel or a title.
#pragma once

#include <QString>
#include <string_view>

namespace requite {

/// One line of at most some hundred characters, whatever the bytes are: line ends and other controls
/// become spaces, and a longer text ends in dots. For the screen only; the record keeps its bytes.
[[nodiscard]] QString OneLine(std::string_view bytes);

/// The same for a tool tip: markup in the text is shown, not interpreted.
[[nodiscard]] QString ToolTipText(std::string_view bytes);

}  // namespace requite
