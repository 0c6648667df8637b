// SPDX-License-Identifier: MIT
// Records a link to the Main Site as a result.
#pragma once

#include <string_view>

#include "scan/scan_context.h"

namespace requite {

/// Counts a link and adds its row to the results, with the current page as its Link URL. A direct link may
/// also make that page the Website URL of the site. Lets events run at the end. Throws Subscript when the row
/// of the Linking Site does not exist any more, and Overflow when the number of links exceeds 16 bits.
void RecordLink(ScanContext& scan, std::string_view status);

}  // namespace requite
