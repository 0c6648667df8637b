// SPDX-License-Identifier: MIT
// Adds the partners of a table to a project file.
#pragma once

#include "console/exit_status.h"
#include "console/options.h"
#include "console/program.h"

namespace requite {

/// Reads the whole table before it touches anything: after a fault in it, which is told in one line, the
/// project file is as it was. `quiet` leaves out the sites that were there already and the counts.
[[nodiscard]] ExitStatus RunImport(ConsoleProgram& program, const ImportOptions& options, bool quiet);

}  // namespace requite
