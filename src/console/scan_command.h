// SPDX-License-Identifier: MIT
// One scan of a project, from its load to the files that were asked for.
#pragma once

#include <functional>

#include "console/exit_status.h"
#include "console/options.h"
#include "console/program.h"
#include "console/progress.h"

namespace requite {

/// `interrupted` tells whether the user has asked for an early end; the scan is then stopped as by
/// Stop. Throws RuntimeFailure for what nothing in the program handled.
[[nodiscard]] ExitStatus RunScan(ConsoleProgram& program, const ScanOptions& options,
                                 ScanProgress::Output output, const std::function<bool()>& interrupted);

}  // namespace requite
