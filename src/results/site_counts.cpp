// SPDX-License-Identifier: MIT
// Sorts verdicts into three kinds.
#include "results/site_counts.h"

#include <algorithm>

namespace requite {

void SiteCounts::Add(bool linksBack, bool reached) {
  ++Sites;
  ++(linksBack ? LinkBack : reached ? Missing : NotReached);
}

std::string SummaryOf(const SiteCounts& counts, std::int32_t all) {
  return std::to_string(counts.Sites) + (counts.Sites < all ? " of " + std::to_string(all) : "") +
         (std::max(counts.Sites, all) == 1 ? " site: " : " sites: ") + std::to_string(counts.LinkBack) +
         " link back, " + std::to_string(counts.Missing) + " do not, " + std::to_string(counts.NotReached) +
         " not reached";
}

}  // namespace requite
