// SPDX-License-Identifier: MIT
// The disk that fails, for a whole program: loaded in front of its libraries, told by the environment what to
// do.
#include <cstdlib>
#include <string>

#include "support/file_faults.h"

namespace requite::test {
namespace {

std::string Told(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

/// REQUITE_FAULT is the number of the call and a letter: o(nce), f(ull), s(hort write) or k(ill); the others
/// are as FileFaults takes them. It never ends, so the program's last calls count too.
FileFaults* FromEnvironment() {
  const std::string fault = Told("REQUITE_FAULT");
  ::unsetenv("LD_PRELOAD");  // what the program starts has a disk that works
  if (fault.empty()) return nullptr;
  const Fault kind = fault.ends_with('f')   ? Fault::Full
                     : fault.ends_with('s') ? Fault::ShortWrite
                     : fault.ends_with('k') ? Fault::Kill
                                            : Fault::Once;
  return new FileFaults(std::atoi(fault.c_str()), kind, Told("REQUITE_FAULT_BELOW"),
                        Told("REQUITE_FAULT_MARK"));
}

const FileFaults* const faults = FromEnvironment();

}  // namespace
}  // namespace requite::test
