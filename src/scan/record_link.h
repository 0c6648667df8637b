// SPDX-License-Identifier: MIT
// A link to the Main Site becomes a result.
#pragma once

#include <string_view>

#include "scan/scan_context.h"

namespace requite {

/// Counts a link and adds its row to the results, with the page in hand as its Link URL; a direct link
/// may make that page the Website URL of the site. Ends by letting events run. Throws Subscript when
/// the row of the Linking Site is gone, and Overflow when the count of links leaves 16 bits.
void RecordLink(ScanContext& scan, std::string_view status);

}  // namespace requite
