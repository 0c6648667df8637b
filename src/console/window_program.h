// SPDX-License-Identifier: MIT
// Finds the window program and starts it.
#pragma once

#include <string>

namespace requite {

/// The path of the program `requite`: next to this executable, otherwise in a folder of PATH. Empty when
/// neither has it.
[[nodiscard]] std::string FindWindowProgram();

/// Starts it as a process of its own that survives this program and its terminal. Returns an empty text,
/// or one line that says why it could not be started.
[[nodiscard]] std::string StartWindowProgram(std::string program);

}  // namespace requite
