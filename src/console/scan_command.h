// SPDX-License-Identifier: MIT
// Runs one scan of a project, from loading it to writing the files asked for.
#pragma once

#include <functional>

#include "console/exit_status.h"
#include "console/options.h"
#include "console/program.h"
#include "console/progress.h"

namespace requite {

/// A request to end early. It comes as an event, wherever events run, also during a step that waits.
struct Interrupt {
  bool Seen = false;
  std::function<void()> OnInterrupt;
};

/// An interrupt stops the scan as Stop does. Throws RuntimeFailure for what nothing in the program
/// handled.
[[nodiscard]] ExitStatus RunScan(ConsoleProgram& program, const ScanOptions& options,
                                 ScanProgress::Output output, Interrupt& interrupt);

}  // namespace requite
