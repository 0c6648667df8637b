// SPDX-License-Identifier: MIT
// How far a running scan has come.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/project.h"
#include "scan/scan_state.h"

namespace requite {

/// The number of Linking Sites of the scan, by its type and by the lists as they are now.
[[nodiscard]] std::size_t SitesToScan(const Project& project, const ScanState& state);

/// 0 to 100: the Linking Sites that are finished, and of the current one the pages that are done among
/// those known so far. Only an estimate: a site's pages become known as it is scanned, so it may go down.
[[nodiscard]] int ScanPercent(const Project& project, const ScanState& state, std::int32_t sitesFinished);

}  // namespace requite
