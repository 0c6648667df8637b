// SPDX-License-Identifier: MIT
// A piece of work on disks that fail at the first call, the second and so on.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <limits>
#include <string>

#include "platform/files.h"
#include "platform/runtime_failure.h"
#include "support/file_faults.h"

namespace requite::test {

inline const std::string kNone = "(none)";

inline std::string TextOf(const std::string& path) { return FileExists(path) ? ReadFile(path) : kNone; }

inline int UnfinishedFiles(const std::filesystem::path& folder) {
  int count = 0;
  for (const auto& one : std::filesystem::recursive_directory_iterator(folder)) {
    count += static_cast<int>(one.path().filename().string().starts_with(".requite-"));
  }
  return count;
}

/// A disk that fails at one call, or from it on.
struct FailingDisk {
  int FailAt;
  Fault Kind;
  bool Reached = false;

  /// Works while the disk fails. False when that ended in a failure.
  bool Lets(const std::function<void()>& work, const std::string& below = {}) {
    const FileFaults faults(FailAt, Kind, below);
    const bool done = PassOver(work);
    Reached = faults.Reached();
    return done;
  }
};

/// Tries on disks that fail at the first call, the second and so on, in each way, until no such call is
/// reached. `attempt` sets everything up each time. Returns the least number of calls of any way.
inline int AtEveryCall(const std::function<void(FailingDisk&)>& attempt,
                       std::initializer_list<Fault> faults = {Fault::Once, Fault::Full, Fault::ShortWrite}) {
  int least = std::numeric_limits<int>::max();
  for (const Fault fault : faults) {
    for (int n = 1;; ++n) {
      SCOPED_TRACE("call " + std::to_string(n) + ", fault " + std::to_string(static_cast<int>(fault)));
      FailingDisk disk{n, fault};
      attempt(disk);
      if (disk.Reached && !testing::Test::HasFailure()) continue;
      least = std::min(least, n - 1);
      break;
    }
  }
  return least;
}

}  // namespace requite::test
