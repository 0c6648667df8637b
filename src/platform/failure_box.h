// SPDX-License-Identifier: MIT
// Failures that end a block of statements in a message box.
#pragma once

#include <string>
#include <utility>

#include "platform/runtime_failure.h"
#include "platform/services.h"

namespace requite {

/// Runs a block of statements. The first failure ends it and is shown in the message box that
/// `toBox(failure)` returns: the callers' texts differ, and users know them. Returns false when the block
/// was cut short.
template <class Block, class ToBox>
bool EndInBox(Dialogs& dialogs, Block&& block, ToBox&& toBox) {
  try {
    std::forward<Block>(block)();
    return true;
  } catch (const RuntimeFailure& failure) {
    dialogs.Show(std::forward<ToBox>(toBox)(failure));
    return false;
  }
}

/// How a scan words its failures: the description, a space, the number.
[[nodiscard]] inline MessageBox ScanFailureBox(const RuntimeFailure& failure) {
  return {failure.Description + " " + std::to_string(failure.Number)};
}

}  // namespace requite
