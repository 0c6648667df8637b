// SPDX-License-Identifier: MIT
// Writes a finished scan into the history, and keeps the history small.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "history/history_file.h"
#include "history/site_record.h"

namespace requite {

/// Stores a scan in one transaction and prunes the older ones of its project. Of each site, what the verdict
/// and the links say is set; its number, row, dates and counts are filled in here. `others` are the sites of
/// the project that this scan did not record: they claim their records, so that no recorded site takes them.
void StoreScan(HistoryFile& history, ScanRecord scan, std::vector<SiteRecord> sites,
               const std::vector<ProjectSite>& others);

/// Deletes what need not be kept at a date: all scans but the newest 100 of the project and those younger
/// than 400 days. Returns how many.
std::int64_t PruneScans(HistoryFile& history, const std::string& project, const std::string& today);

}  // namespace requite
