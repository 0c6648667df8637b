// SPDX-License-Identifier: MIT
// The C library's settings for freed memory, where it has them.
#include "system/freed_memory.h"

#include <cstdlib>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace requite {

void KeepFreedMemory() {
#ifdef __GLIBC__
  constexpr int kKept = 8 * 1024 * 1024;
  // Buffers of ordinary pages come from the heap; only unusual ones are mapped and unmapped.
  ::mallopt(M_MMAP_THRESHOLD, 2 * 1024 * 1024);
  ::mallopt(M_TRIM_THRESHOLD, kKept);
  ::mallopt(M_TOP_PAD, 1024 * 1024);
#endif
}

void JoinFreedMemoryAtOnce() {
#ifdef __GLIBC__
  ::mallopt(M_MXFAST, 0);
#endif
}

}  // namespace requite
