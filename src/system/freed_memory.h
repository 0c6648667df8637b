// SPDX-License-Identifier: MIT
// How the process treats memory that it has freed.
#pragma once

namespace requite {

/// Keeps up to some MiB of freed memory instead of giving it back to the system after each page: a
/// scan frees and takes a few buffers of a page's size again and again, and the system would have to
/// clear every page again. Called once, by main, before anything large is allocated.
void KeepFreedMemory();

}  // namespace requite
