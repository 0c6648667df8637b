// SPDX-License-Identifier: MIT
// How far a running scan has come, as one number.
#pragma once

namespace requite {

struct Form1;

/// 0 to 100: the Linking Sites that are done, and within the one in hand the pages of those known so
/// far. A guess for a task bar: a site's pages become known as it is scanned, so it may step back.
[[nodiscard]] int ScanPercent(const Form1& form);

}  // namespace requite
