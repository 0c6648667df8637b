// SPDX-License-Identifier: MIT
// Asks the system's loader, which searches as it does for a library that a program is linked with.
#include "platform/late_library.h"

#include <dlfcn.h>

#include "platform/runtime_failure.h"

namespace requite {
namespace {

[[noreturn]] void Fail() {
  const char* why = ::dlerror();
  throw RuntimeFailure(static_cast<int>(Failure::FileNotFound),
                       std::string("A library is missing: ") + (why == nullptr ? "" : why));
}

}  // namespace

void* LateLibrary::Find(const char* function) {
  // Everything is bound at once, so that a library that does not fit fails here and nowhere else.
  if (loaded_ == nullptr) loaded_ = ::dlopen(file_, RTLD_NOW | RTLD_LOCAL);
  if (loaded_ == nullptr) Fail();
  void* found = ::dlsym(loaded_, function);
  if (found == nullptr) Fail();
  return found;
}

}  // namespace requite
