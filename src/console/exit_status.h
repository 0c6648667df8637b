// SPDX-License-Identifier: MIT
// How the program ends, for those who call it from scripts and jobs.
#pragma once

#include "platform/runtime_failure.h"

namespace requite {

enum class ExitStatus : int {
  Done = 0,           ///< script ran; every site scanned links back as often as expected
  LinksMissing = 1,   ///< at least one site does not
  NotStarted = 1,     ///< `open`: there is no window program that could be started
  Refused = 2,        ///< the command line, the script or a file named there is wrong
  NotIdleInTime = 3,  ///< `wait idle` ran out of time
  PostFailed = 4,     ///< a row that `--post` sent got no answer
  RunTimeFailure = kRunTimeFailureStatus,
  Interrupted = 130,
};

}  // namespace requite
