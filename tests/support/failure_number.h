// SPDX-License-Identifier: MIT
// The failure of an action as a number that a test can compare.
#pragma once

#include "platform/runtime_failure.h"

namespace requite::test {

/// The number of the failure that the action ends with; 0 when it ends well.
template <class Action>
int NumberOf(Action action) {
  try {
    action();
    return 0;
  } catch (const RuntimeFailure& failure) {
    return failure.Number;
  }
}

}  // namespace requite::test
