// SPDX-License-Identifier: MIT
// What the sites of a scan come to.
#include "results/outcome.h"

namespace requite {

OutcomeCounts CountsOf(const ScanOutcome& outcome) {
  OutcomeCounts counts;
  for (const ScanOutcome::Site& site : outcome.Sites) {
    ++counts.Sites;
    ++(site.LinksBack ? counts.LinkBack : site.Reached ? counts.Missing : counts.NotReached);
  }
  return counts;
}

}  // namespace requite
