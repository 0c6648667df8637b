// SPDX-License-Identifier: MIT
// Looking at the scan's state and calling single operations on it.
#pragma once

#include "console/script/script_commands.h"

namespace requite {

/// `var NAME`: a field of the scan state, of the page in hand or of the main window, or a counter.
[[nodiscard]] Complaint PrintVariable(ScriptSession& session, const Words& words);

/// `call OPERATION TEXT`: prints the result and the argument as it stands after the call.
[[nodiscard]] Complaint CallOperation(ScriptSession& session, const Words& words);

}  // namespace requite
