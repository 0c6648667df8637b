// SPDX-License-Identifier: MIT
// A disk that fails at a chosen call, and one that loses power: test doubles under all file operations.
//
// A test program that is linked with file_faults.cpp has the system's file calls replaced by ones that
// count, record and fail as asked. Without a FileFaults object they only pass on. Libraries that the program
// uses make their calls here too where it exports its symbols. The library file_fault_preload does the same
// to any program that is started with it.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace requite::test {

enum class FileCall { Open, Write, Flush, Close, Rename, Link, Unlink, MakeFolder, Truncate, ChangeMode };

/// A call that succeeded. Calls by descriptor have the path under which it was opened.
struct FileEvent {
  FileCall Call;
  std::string Path;
  std::string Target;  ///< of a rename or link
  std::string Bytes;   ///< of a write
  bool Makes = false;  ///< an open that may make the file
};

enum class Fault {
  Once,        ///< the n-th call fails
  Full,        ///< the disk is full from the n-th call on: what needs room fails, removing works
  ShortWrite,  ///< as Full, and a write at the n-th call takes half of its bytes first
  Kill         ///< the process is killed before the n-th call
};

/// While it lives, file calls of the whole process are counted from 1 and fail as told. One at a time.
class FileFaults {
 public:
  /// Fails nothing with `failAt` 0. With a folder `below`, calls on other files only pass on. `mark` is a
  /// file that is made when the call that is to fail is reached.
  explicit FileFaults(int failAt = 0, Fault fault = Fault::Once, const std::string& below = {},
                      const std::string& mark = {});
  ~FileFaults();
  FileFaults(const FileFaults&) = delete;
  FileFaults& operator=(const FileFaults&) = delete;

  /// Whether the call that was to fail was reached.
  [[nodiscard]] bool Reached() const;
  [[nodiscard]] const std::vector<FileEvent>& Events() const;
};

/// Files by path; a path that is missing is no file.
using DiskState = std::map<std::string, std::string>;

/// Gives `check` every state that the disk may be in when the power fails right after the first `count`
/// events: of each file the flushed bytes are there and of the others none, half or all; of each folder
/// the flushed names are there and any number of the later ones, in their order. `before` is the disk
/// before the first event, all of it flushed.
void ForEachPowerCut(const DiskState& before, const std::vector<FileEvent>& events, std::size_t count,
                     const std::function<void(const DiskState&)>& check);

}  // namespace requite::test
