// SPDX-License-Identifier: MIT
// A piece of work on disks that fail at the first call, the second and so on.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>

#include "platform/files.h"
#include "support/file_faults.h"

namespace requite::test {

inline constexpr Fault kFaults[] = {Fault::Once, Fault::Full, Fault::ShortWrite};
inline const std::string kNone = "(none)";

inline std::string TextOf(const std::string& path) { return FileExists(path) ? ReadFile(path) : kNone; }

inline int UnfinishedFiles(const std::filesystem::path& folder) {
  int count = 0;
  for (const auto& one : std::filesystem::recursive_directory_iterator(folder)) {
    count += static_cast<int>(one.path().filename().string().starts_with(".requite-"));
  }
  return count;
}

/// Runs a save on disks that fail at the first call, the second and so on, until there is no such call.
/// `save` sets everything up each time and makes the FileFaults when it begins. Returns the number of calls.
inline int AtEveryCall(Fault fault, const std::function<bool(int failAt, Fault fault)>& saveReachedIt) {
  for (int n = 1;; ++n) {
    SCOPED_TRACE("call " + std::to_string(n) + ", fault " + std::to_string(static_cast<int>(fault)));
    if (!saveReachedIt(n, fault) || testing::Test::HasFailure()) return n - 1;
  }
}

}  // namespace requite::test
