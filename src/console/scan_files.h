// SPDX-License-Identifier: MIT
// The files that a scan was asked for, each at its place or on standard output.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "console/options.h"
#include "console/program.h"

namespace requite {

/// Writes each file at its time: the report as the program makes it, the others when the scan is over. A
/// failure is told on standard error.
class ScanFiles {
 public:
  /// A text that is handed over piece by piece, as it may be larger than the memory.
  using TakePiece = std::function<void(std::string_view)>;
  using Pieces = std::function<void(const TakePiece&)>;

  /// Waits for the report from here on. Both must outlive this object.
  ScanFiles(ConsoleProgram& program, const ScanOptions& options);
  ~ScanFiles();
  ScanFiles(const ScanFiles&) = delete;
  ScanFiles& operator=(const ScanFiles&) = delete;

  /// Whether one of the files is standard output, which then has no room for anything else.
  [[nodiscard]] bool TakeOutput() const;
  /// Writes the files but for the report. Returns whether all that was asked for could be written, the
  /// report included.
  [[nodiscard]] bool Write();

 private:
  bool WriteOne(const std::string& path, const std::function<void()>& step);
  void Put(const std::string& path, const std::string& text);
  void PutPieces(const std::string& path, const Pieces& pieces);

  ConsoleProgram& program_;
  const ScanOptions& options_;
  bool generated_ = false;
  bool reported_ = false;  ///< what was generated is written
};

}  // namespace requite
