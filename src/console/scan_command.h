// SPDX-License-Identifier: MIT
// One scan of a project, from its load to the files that were asked for.
#pragma once

#include <functional>

#include "console/exit_status.h"
#include "console/options.h"
#include "console/program.h"
#include "console/progress.h"

namespace requite {

/// The user's wish for an early end. It comes as an event, wherever events run, also in the middle of
/// a step that waits.
struct Interrupt {
  bool Seen = false;
  std::function<void()> OnInterrupt;
};

/// After an interrupt the scan is stopped as by Stop. Throws RuntimeFailure for what nothing in the
/// program handled.
[[nodiscard]] ExitStatus RunScan(ConsoleProgram& program, const ScanOptions& options,
                                 ScanProgress::Output output, Interrupt& interrupt);

}  // namespace requite
