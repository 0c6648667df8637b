// SPDX-License-Identifier: MIT
// Writes the work files of a scan: of pages that follow one another at once, only the last.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>

#include "scan/scan_context.h"
#include "scan/slices.h"

namespace requite {

/// Two files for each page would take longer than everything else that is done for a small one. So within a
/// slice of events they wait, and only those of the last page are written. The first page of a scan does not
/// wait: a folder that cannot be written to is told before anything else is.
class WorkFileWriter {
 public:
  using Text = std::shared_ptr<const std::string>;
  enum class File : std::size_t { Page, FlatPage };

  /// The scan must outlive this object, which writes what waits when it is destroyed.
  explicit WorkFileWriter(ScanContext& scan);
  ~WorkFileWriter();
  WorkFileWriter(const WorkFileWriter&) = delete;
  WorkFileWriter& operator=(const WorkFileWriter&) = delete;

  /// Replaces a file, soon or at once. Lets events run between the slices of a text of more than one; after a
  /// stop such a file has what was written until then. False when the file system has refused it.
  [[nodiscard]] bool Put(File file, const Text& text);
  /// Tells the user, once for each scan, that a file could not be written. The scan does not need the files.
  void TellUnwritten();

 private:
  void WriteWaiting();
  [[nodiscard]] bool Write(File file, const std::string& text) const;

  ScanContext& scan_;
  std::array<Text, 2> waiting_;  ///< by File
};

}  // namespace requite
