// SPDX-License-Identifier: MIT
// Reads records of sites out of the history.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "history/history_file.h"
#include "history/site_record.h"

namespace requite {

/// The newest record of each site of a project, without its links, in the order of rows.
[[nodiscard]] std::vector<SiteRecord> NewestRecords(HistoryFile& history, const std::string& project);

/// Looks up records one at a time. The history must outlive it.
class RecordReader {
 public:
  explicit RecordReader(HistoryFile& history);

  /// The newest record of a row from a scan up to this number, with its links.
  [[nodiscard]] std::optional<SiteRecord> UpTo(std::int64_t row, std::int64_t scan);
  /// The oldest record of a row that is kept, with its links.
  [[nodiscard]] std::optional<SiteRecord> Oldest(std::int64_t row);
  /// Fills in the links that were found.
  void ReadLinks(SiteRecord& site);

 private:
  [[nodiscard]] std::optional<SiteRecord> One(SqliteStatement& query);

  SqliteStatement upTo_;
  SqliteStatement oldest_;
  SqliteStatement links_;
};

/// What one scan found of a site, for a drawing.
struct PastResult {
  std::string Finished;  ///< the date of the scan
  std::int64_t Expected = 0;
  std::int64_t Found = 0;
  SiteState State = SiteState::None;
};

/// The last results of a site, the oldest first; at most `most` of them.
[[nodiscard]] std::vector<PastResult> LastResults(HistoryFile& history, std::int64_t row, int most = 30);

}  // namespace requite
