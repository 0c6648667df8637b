// SPDX-License-Identifier: MIT
// Cuts the URL of a page into the host and path of its request and the directory of its links.
#pragma once

#include "scan/scan_state.h"

namespace requite {

/// Takes state.PageUrl apart: sets PageHost and PagePath of the page, PageFull and PageDir of the
/// state, and leaves PageUrl without its scheme and without a "/" at its end.
void CutUrl(ScanState& state, PageFetch& page);

}  // namespace requite
