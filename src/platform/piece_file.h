// SPDX-License-Identifier: MIT
// A file that is written again and again, piece by piece.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace requite {

/// Overwrites the old bytes, because emptying the file first would take some file systems milliseconds.
/// A file that may be deleted but not written, or that is not a normal file, is replaced by a new one.
/// Nothing here throws.
class PieceFile {
 public:
  explicit PieceFile(const std::string& path);
  ~PieceFile() { static_cast<void>(Finish()); }
  PieceFile(const PieceFile&) = delete;
  PieceFile& operator=(const PieceFile&) = delete;

  /// Adds a piece. False when it or an earlier one could not be written.
  bool Write(std::string_view piece);
  /// Cuts off any old text after the pieces and closes the file. False when
  /// anything failed since it was opened.
  bool Finish();

 private:
  [[nodiscard]] bool Open(const std::string& path, int more);

  int fd_ = -1;
  std::size_t oldSize_ = 0;
  std::size_t written_ = 0;
  bool failed_ = false;
};

}  // namespace requite
