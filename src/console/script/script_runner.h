// SPDX-License-Identifier: MIT
// Runs a whole script, from the start of the program to its last line.
#pragma once

#include <iosfwd>

#include "console/exit_status.h"
#include "console/program.h"

namespace requite {

/// Starts the program and runs the lines as they come, so a script typed into a pipe is answered line by
/// line. Throws RuntimeFailure for what nothing in the program handled.
[[nodiscard]] ExitStatus RunScript(ConsoleProgram& program, std::istream& script);

}  // namespace requite
