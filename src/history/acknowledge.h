// SPDX-License-Identifier: MIT
// Sites that the user knows do not link back. They are not told again until something changes.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "history/history_file.h"

namespace requite {

struct Acknowledged {
  std::string Since;
  std::int64_t Known = 0;
  std::string Why;

  /// The site has stayed as it was. One that now and then cannot be reached has not changed.
  [[nodiscard]] bool HoldsFor(const SiteRecord& site) const {
    return site.Since == Since && site.Known == Known && FallsShort(site);
  }
};

/// All marks of a project by row, also those that no longer hold.
[[nodiscard]] std::map<std::int64_t, Acknowledged> AcknowledgedSites(HistoryFile& history,
                                                                     const std::string& project);

/// Marks a site as it is now as known; `why` is the user's word on it, `at` the date. Does nothing for a
/// site that links back as often as expected. The history must be open to be written.
void Acknowledge(HistoryFile& history, const std::string& project, const SiteRecord& newest,
                 std::string_view why, const std::string& at);
/// Takes the mark back, if there is one.
void TakeBackAcknowledged(HistoryFile& history, std::int64_t row);

/// The newest records that a user may mean by a host, in any letter case, or by a whole Website URL.
[[nodiscard]] std::vector<SiteRecord> SitesNamed(HistoryFile& history, const std::string& project,
                                                 std::string_view name);

}  // namespace requite
