// SPDX-License-Identifier: MIT
// The folder "Backup": copies of unsaved projects that were replaced, beside those that saves keep there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace requite {

/// Copies of unsaved projects are in a folder of their own inside "Backup", because a save replaces the file
/// of its project's name in "Backup" itself. Only they are ever deleted, the oldest first.
class KeptCopies {
 public:
  struct Bounds {
    std::size_t Copies = 10;
    std::uint64_t Bytes = std::uint64_t{256} * 1024 * 1024;  ///< of all copies together
  };

  explicit KeptCopies(const ProgramFolder& folder) : KeptCopies(folder, Bounds()) {}
  KeptCopies(const ProgramFolder& folder, Bounds bounds) : folder_(folder), bounds_(bounds) {}

  /// Writes the text of a project as a project file and returns its path; the file is on the disk then.
  /// `name` is that of the project's file, `utc` the time in the form of Clock::UtcDateTime. An older copy of
  /// the same text is deleted, and so are the oldest ones above the bounds. Throws RuntimeFailure when the
  /// file system refuses, and for a text that is above the bounds by itself.
  [[nodiscard]] std::string Keep(const std::string& text, std::string_view name,
                                 const std::string& utc) const;

  /// The paths of the copies of unsaved projects, the newest first. Empty when they cannot be listed.
  [[nodiscard]] std::vector<std::string> Unsaved() const;
  /// The paths of the copies that saves kept, the newest first.
  [[nodiscard]] std::vector<std::string> Saved() const;

 private:
  void DeleteSame(const std::string& kept) const;
  void DeleteOldest() const;

  const ProgramFolder& folder_;
  Bounds bounds_;
};

}  // namespace requite
