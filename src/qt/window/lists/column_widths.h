// SPDX-License-Identifier: MIT
// Divides the width of a list among its columns.
#pragma once

#include <vector>

namespace requite {

/// What one column needs, in pixels.
struct ColumnNeed {
  int Least = 0;  ///< its caption, and all of a short content
  int Whole = 0;  ///< all of its content; at least `Least`
  int Share = 1;  ///< how much it gets beside others that are cut too
};

/// One width for each need. Where all columns fit, the one with the largest share gets the rest. Where they
/// do not, the widest are cut first, in proportion to their shares. No column is narrower than its `Least`,
/// so the sum may be larger than `room`.
[[nodiscard]] std::vector<int> ShareWidth(const std::vector<ColumnNeed>& needs, int room);

}  // namespace requite
