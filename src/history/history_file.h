// SPDX-License-Identifier: MIT
// The file "history.db" of the program's folder: its form, and the scans in it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "history/site_record.h"
#include "history/sqlite_store.h"
#include "platform/files.h"

namespace requite {

inline constexpr std::string_view kHistoryFile = "history.db";

/// Open for as long as the object lives. All functions that work with it throw RuntimeFailure, whose
/// description is one line for the user without a full stop, and change nothing then.
class HistoryFile {
 public:
  /// A file that is opened to be written is made when it is missing.
  HistoryFile(const ProgramFolder& folder, SqliteStore::Open open);

  [[nodiscard]] SqliteStore& Store() { return store_; }

  /// The scans of a project, the oldest first.
  [[nodiscard]] std::vector<ScanRecord> Scans(const std::string& project);

 private:
  SqliteStore store_;
};

/// Writing to the history: all that is written before Commit is written, or nothing. Makes the tables of a
/// new file. Refuses a file of a newer version of the program.
class HistoryWrite {
 public:
  explicit HistoryWrite(HistoryFile& history);
  void Commit() { transaction_.Commit(); }

 private:
  SqliteTransaction transaction_;
};

}  // namespace requite
