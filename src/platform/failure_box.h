// SPDX-License-Identifier: MIT
// The one form in which a scan shows a failure.
#pragma once

#include <string>
#include <utility>

#include "platform/runtime_failure.h"
#include "platform/services.h"

namespace requite {

/// Shows the failure's description and its number with a space between them.
inline void ShowFailure(Dialogs& dialogs, const RuntimeFailure& failure) {
  dialogs.Say(failure.Description + " " + std::to_string(failure.Number));
}

/// Runs a block of statements; the first failure ends the block and is shown in a plain message box.
/// Returns false when the block was cut short.
template <class Block>
bool EndWithMessage(Dialogs& dialogs, Block&& block) {
  try {
    std::forward<Block>(block)();
    return true;
  } catch (const RuntimeFailure& failure) {
    ShowFailure(dialogs, failure);
    return false;
  }
}

}  // namespace requite
