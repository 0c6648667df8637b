// SPDX-License-Identifier: MIT
// Writes the files that a scan was asked for, each to its path or to standard output.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "console/options.h"
#include "console/program.h"

namespace requite {

/// Writes the report when the program makes it and the other files when the scan is over. Prints failures
/// on standard error.
class ScanFiles {
 public:
  /// A text that is passed on piece by piece, as it may be larger than the memory.
  using TakePiece = std::function<void(std::string_view)>;
  using Pieces = std::function<void(const TakePiece&)>;

  /// Catches reports from now on. Both must outlive this object.
  ScanFiles(ConsoleProgram& program, const ScanOptions& options);
  ~ScanFiles();
  ScanFiles(const ScanFiles&) = delete;
  ScanFiles& operator=(const ScanFiles&) = delete;

  /// Writes the rows of the scan to --output. `utf8` makes their text.
  [[nodiscard]] bool WriteRows(const std::function<std::string()>& utf8);
  /// Whether one of the files is standard output, which can then take nothing else.
  [[nodiscard]] bool TakeOutput() const;
  /// Writes all files except the report. Returns whether everything asked for was written, the report
  /// included.
  [[nodiscard]] bool Write();

 private:
  bool WriteOne(const std::string& path, const std::function<void()>& step);
  void Put(const std::string& path, const std::string& text);
  void PutPieces(const std::string& path, const Pieces& pieces);

  ConsoleProgram& program_;
  const ScanOptions& options_;
  bool generated_ = false;
  bool reported_ = false;  ///< the report was written
};

}  // namespace requite
