// SPDX-License-Identifier: MIT
// What a program must do first, so that its output cannot end up in its files.
#pragma once

namespace requite {

/// Opens the null device for each of the descriptors 0 to 2 that is closed. Without this, the next file
/// opened would become standard output and receive every printed line. Call it first in main.
void OpenStandardStreams();

/// Makes a write to a pipe without a reader, or beyond the size limit of files, fail like any other
/// write instead of ending the process.
void LetWritesFail();

}  // namespace requite
