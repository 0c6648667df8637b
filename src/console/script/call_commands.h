// SPDX-License-Identifier: MIT
// Printing the scan's state and calling single operations on it.
#pragma once

#include "console/script/script_commands.h"

namespace requite {

/// `var NAME`: a field of the scan state, of the page in progress or of the main window, or a counter.
[[nodiscard]] Complaint PrintVariable(ScriptSession& session, const Words& words);

/// `call OPERATION TEXT`: prints the result and the argument as the call left it.
[[nodiscard]] Complaint CallOperation(ScriptSession& session, const Words& words);

/// The names that these two know, those of windows that are not loaded included.
[[nodiscard]] std::vector<std::string_view> VariableNames();
[[nodiscard]] std::vector<std::string_view> OperationNames();

}  // namespace requite
