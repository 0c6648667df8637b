// SPDX-License-Identifier: MIT
// Counts the sites of a scan, and the share of them that is done.
#include "scan/scan_share.h"

#include <algorithm>

namespace requite {

std::size_t SitesToScan(const Project& project, const ScanState& state) {
  if (state.ScanType == ScanType::SelectedLinkingSite) return 1;
  std::size_t sites = 0;
  for (int k = 1; k <= project.ListCount(); ++k) {
    const bool isScanned = state.ScanType == ScanType::AllMainSites || k == project.CurrentMainSite;
    if (isScanned) sites += project.List1(k).RowCount();
  }
  return sites;
}

int ScanPercent(const Project& project, const ScanState& state, std::int32_t sitesFinished) {
  const auto sites = static_cast<double>(std::max<std::size_t>(1, SitesToScan(project, state)));
  const double page = static_cast<double>(state.PagesDone) / (state.PagesQueued + 1.0);
  const double done = sitesFinished + std::clamp(page, 0.0, 1.0);
  return static_cast<int>(std::clamp(done / sites, 0.0, 1.0) * 100);
}

}  // namespace requite
