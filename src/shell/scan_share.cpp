// SPDX-License-Identifier: MIT
// Counts the sites of a scan.
#include "shell/scan_share.h"

#include <algorithm>
#include <cstddef>

#include "shell/form1.h"

namespace requite {
namespace {

std::size_t SitesToScan(const Form1& form) {
  const Project& project = form.Sites;
  const int current = project.CurrentMainSite;
  if (form.State.ScanType == 2) return 1;
  if (form.State.ScanType == 1) {
    return current >= 1 && current <= project.ListCount() ? project.List1(current).RowCount() : 0;
  }
  std::size_t sites = 0;
  for (int k = 1; k <= project.ListCount(); ++k) sites += project.List1(k).RowCount();
  return sites;
}

}  // namespace

int ScanPercent(const Form1& form) {
  const auto sites = static_cast<double>(std::max<std::size_t>(1, SitesToScan(form)));
  const double page = static_cast<double>(form.State.PagesDone) / (form.State.PagesQueued + 1.0);
  const double done = form.Figures.LinkingSitesScanned + std::clamp(page, 0.0, 1.0);
  return static_cast<int>(std::clamp(done / sites, 0.0, 1.0) * 100);
}

}  // namespace requite
