// SPDX-License-Identifier: MIT
// Looks for the level to which the widest columns have to shrink.
#include "qt/window/lists/column_widths.h"

#include <algorithm>
#include <numeric>

namespace requite {
namespace {

std::vector<int> WidthsAt(int level, const std::vector<ColumnNeed>& needs) {
  std::vector<int> widths;
  widths.reserve(needs.size());
  for (const ColumnNeed& need : needs) {
    widths.push_back(std::clamp(need.Share * level, need.Least, std::max(need.Least, need.Whole)));
  }
  return widths;
}

int SumOf(const std::vector<int>& widths) { return std::accumulate(widths.begin(), widths.end(), 0); }

}  // namespace

std::vector<int> ShareWidth(const std::vector<ColumnNeed>& needs, int room) {
  if (needs.empty()) return {};
  int low = 0;
  int high = std::max(room, 0);  // no column can have more
  while (low < high) {
    const int middle = low + (high - low + 1) / 2;
    if (SumOf(WidthsAt(middle, needs)) <= room) {
      low = middle;
    } else {
      high = middle - 1;
    }
  }
  std::vector<int> widths = WidthsAt(low, needs);
  const auto largest = std::max_element(needs.begin(), needs.end(),
                                        [](const auto& a, const auto& b) { return a.Share < b.Share; });
  widths[static_cast<std::size_t>(largest - needs.begin())] += std::max(0, room - SumOf(widths));
  return widths;
}

}  // namespace requite
