// SPDX-License-Identifier: MIT
// The table of page limits, in the order of the rows of cmbAdvance.
#include "scan/page_limit.h"

#include <array>
#include <cstddef>

namespace requite {

std::int32_t PageLimitAt(std::int16_t index, std::int32_t asItWas) {
  static constexpr std::array<std::int32_t, 13> kLimits{1,     10,    50,    100,    500,    1000,  5000,
                                                        10000, 20000, 50000, 100000, 200000, 500000};
  const auto row = static_cast<std::size_t>(index);
  return index < 0 || row >= kLimits.size() ? asItWas : kLimits[row];
}

}  // namespace requite
