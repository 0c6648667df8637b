// SPDX-License-Identifier: MIT
// Whether a site has another page to read. The scan and the lanes that run ahead of it decide alike.
#pragma once

#include "scan/scan_context.h"

namespace requite {

enum class PageDecision {
  Return,            ///< no scan runs
  CloseSite,         ///< the queue is empty, or the page limit is reached
  CloseSiteAndGoOn,  ///< the site has its links
  TakePage,
};

/// The first half of the page step: counts the page and finds out whether the site is finished. When the site
/// has no more pages, the second half is left out. When it has all its links, the second half still runs
/// after the next site has begun: the texts of the panels depend on it.
[[nodiscard]] PageDecision DecidePage(ScanContext& scan);

}  // namespace requite
