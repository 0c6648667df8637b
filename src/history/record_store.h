// SPDX-License-Identifier: MIT
// Reads records of sites out of the history.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "history/history_file.h"
#include "history/site_record.h"

namespace requite {

/// The newest record of each site of a project, without its links, in the order of rows.
[[nodiscard]] std::vector<SiteRecord> NewestRecords(HistoryFile& history, const std::string& project);

/// Looks up older records. The history must outlive it.
class RecordReader {
 public:
  explicit RecordReader(HistoryFile& history);

  /// Makes `UpTo` of this scan fast, which otherwise follows the records of each site.
  void Prepare(std::int64_t scan);
  /// The newest record of the site from a scan up to this number, with its links. Where that is pruned, the
  /// oldest one that is kept takes its place. Nothing when the site was first recorded later.
  [[nodiscard]] std::optional<SiteRecord> UpTo(const SiteRecord& newest, std::int64_t scan);
  /// The record before, without its links; nothing if it is missing or pruned.
  [[nodiscard]] std::optional<SiteRecord> Before(const SiteRecord& site);
  /// Fills in the links that were found.
  void ReadLinks(SiteRecord& site);

 private:
  [[nodiscard]] std::optional<SiteRecord> At(const RecordPlace& place);

  HistoryFile& history_;
  SqliteStatement one_;
  SqliteStatement links_;
  std::int64_t prepared_ = 0;
  std::unordered_map<std::int64_t, std::int64_t> positions_;  ///< in the prepared scan, by row
};

/// What one scan found of a site, for a drawing.
struct PastResult {
  std::string Finished;  ///< the date of the scan
  std::int64_t Expected = 0;
  std::int64_t Found = 0;
  SiteState State = SiteState::None;
};

/// The last results of a site, the oldest first; at most `most` of them.
[[nodiscard]] std::vector<PastResult> LastResults(HistoryFile& history, const SiteRecord& newest,
                                                  int most = 30);

}  // namespace requite
