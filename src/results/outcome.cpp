// SPDX-License-Identifier: MIT
// What the sites of a scan come to.
#include "results/outcome.h"

namespace requite {

SiteCounts CountsOf(const ScanOutcome& outcome) {
  SiteCounts counts;
  for (const ScanOutcome::Site& site : outcome.Sites) counts.Add(site.LinksBack, site.Reached);
  return counts;
}

}  // namespace requite
