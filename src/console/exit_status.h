// SPDX-License-Identifier: MIT
// The exit statuses, for scripts and jobs that call the program.
#pragma once

#include "platform/runtime_failure.h"

namespace requite {

enum class ExitStatus : int {
  Done = 0,           ///< the script ran; every scanned site links back as often as expected; no link is lost
  LinksMissing = 1,   ///< at least one site does not; a link is lost
  NotStarted = 1,     ///< `open`: no window program could be started
  Refused = 2,        ///< the command line, the script or a file named there is wrong
  NotIdleInTime = 3,  ///< `wait idle` ran out of time
  PostFailed = 4,     ///< a row that `--post` sent got no answer
  RunTimeFailure = kRunTimeFailureStatus,
  Interrupted = 130,
};

}  // namespace requite
