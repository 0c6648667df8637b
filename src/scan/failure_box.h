// SPDX-License-Identifier: MIT
// The one form in which a scan shows a failure.
#pragma once

#include <string>
#include <utility>

#include "platform/runtime_failure.h"
#include "platform/services.h"

namespace requite {

/// Runs a block of statements; the first failure ends the block and is shown in a plain message box,
/// its description and its number with a blank between. Returns false when the block was cut short.
template <class Block>
bool EndWithMessage(Dialogs& dialogs, Block&& block) {
  try {
    std::forward<Block>(block)();
    return true;
  } catch (const RuntimeFailure& failure) {
    dialogs.Say(failure.Description + " " + std::to_string(failure.Number));
    return false;
  }
}

}  // namespace requite
