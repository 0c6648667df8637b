// SPDX-License-Identifier: MIT
// What has changed at the sites of a project.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "history/change.h"
#include "history/history_file.h"
#include "model/project.h"

namespace requite {

/// Which changes to read.
struct ChangesWanted {
  /// Compare with this scan or the last one before this UTC date, such as "2026-01-02". Empty: each site of
  /// the newest scan is compared with its own record before. A date before all scans means the oldest one.
  std::optional<std::int64_t> SinceScan;
  std::string SinceDate;
  bool All = false;  ///< also sites that are the same, marked as known, or not in the newest scans
};

struct SiteChange {
  ChangeKind Kind = ChangeKind::Same;
  SiteRecord Site;                   ///< the newest record
  std::optional<SiteRecord> Before;  ///< what it is compared with; nothing for `Added`
  bool Acknowledged = false;
  std::string Why;   ///< the user's word on a site marked as known
  bool News = true;  ///< one of those that are told without ChangesWanted::All
};

struct ChangeList {
  std::optional<ScanRecord> Scan;            ///< the newest scan; nothing when the project has none
  std::optional<std::int64_t> ComparedWith;  ///< the number of an older scan, if there is one
  std::vector<SiteChange> Changes;           ///< by kind, then by Main Site and place in the scan
  ChangeCounts Counts;                       ///< without the sites that are marked as known
};

/// `sites` are those of the project as it is now: of the others only their removal is told, once. Throws
/// RuntimeFailure, also for a scan that is not one of the project.
[[nodiscard]] ChangeList ReadChanges(HistoryFile& history, const std::string& project,
                                     const std::vector<ProjectSite>& sites, const ChangesWanted& wanted);

/// All sites of a project, in the order of its lists.
[[nodiscard]] std::vector<ProjectSite> SitesOf(const Project& project);

}  // namespace requite
