// SPDX-License-Identifier: MIT
// What a program does before anything else, so that its output and its files cannot be mixed up.
#pragma once

namespace requite {

/// Gives each of the descriptors 0 to 2 that is closed the null device. Without it the next file to be
/// opened would be standard output, and every printed line would land in it. To be called first in main.
void OpenStandardStreams();

/// A write to a pipe without a reader, and one beyond the size that a file may have, fail like any other
/// write instead of ending the process.
void LetWritesFail();

}  // namespace requite
