// SPDX-License-Identifier: MIT
// How the process treats memory that it has freed.
#pragma once

namespace requite {

/// Keeps up to some MiB of freed memory instead of giving it back to the system after each page: a
/// scan frees and takes a few buffers of a page's size again and again, and the system would have to
/// clear every page again. Called once, by main, before anything large is allocated.
void KeepFreedMemory();

/// For a program with a window, which must not freeze: each freed text is joined with its free neighbours at
/// once. Else the next large allocation after a list of 100,000 rows was emptied does this for all its texts
/// in one step, which takes almost a tenth of a second. Costs a scan up to 2 % of its processor time.
void JoinFreedMemoryAtOnce();

}  // namespace requite
