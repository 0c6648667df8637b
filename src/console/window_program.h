// SPDX-License-Identifier: MIT
// The window program, looked for and started.
#pragma once

#include <string>

namespace requite {

/// The path of the program `requite`: beside this executable, else in a folder of PATH; empty when there is
/// none.
[[nodiscard]] std::string FindWindowProgram();

/// Starts it on its own: it goes on when this program and its terminal have ended. Returns an empty text,
/// or one line of words why it could not be started.
[[nodiscard]] std::string StartWindowProgram(std::string program);

}  // namespace requite
