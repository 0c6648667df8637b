// SPDX-License-Identifier: MIT
// A file that is written again and again, piece by piece.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace requite {

/// Writes over the old bytes, which spares the file system the waits of emptying a file first
/// (milliseconds on some). What lies there and may be deleted but not written, or is no normal file, gives
/// way to a new file. Nothing here throws.
class PieceFile {
 public:
  explicit PieceFile(const std::string& path);
  ~PieceFile() { static_cast<void>(Finish()); }
  PieceFile(const PieceFile&) = delete;
  PieceFile& operator=(const PieceFile&) = delete;

  /// Adds a piece. False when it or an earlier one could not be written.
  bool Write(std::string_view piece);
  /// Cuts off what lies after the pieces, so that no old text follows them, and closes the file. False when
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
