// SPDX-License-Identifier: MIT
// Cuts the URL of a page into the host and path of the request and the directory for relative links.
#pragma once

#include "scan/scan_state.h"

namespace requite {

/// Sets PageHost and PagePath of the page, and PageFull and PageDir of the state, from state.PageUrl. Removes
/// the scheme and a "/" at the end from PageUrl.
void CutUrl(ScanState& state, PageFetch& page);

}  // namespace requite
