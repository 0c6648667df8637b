// SPDX-License-Identifier: MIT
// The pages that a scan may take from one site: what cmbAdvance shows and what the scan counts up to.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace requite {

struct PageLimitChoice {
  std::int32_t Pages;
  std::string_view Caption;
};

/// In the order of the rows of cmbAdvance; the setting of that name holds the row, counted from 0.
inline constexpr std::array<PageLimitChoice, 13> kPageLimits = {{{1, "1"},
                                                                 {10, "10"},
                                                                 {50, "50"},
                                                                 {100, "100"},
                                                                 {500, "500"},
                                                                 {1000, "1,000"},
                                                                 {5000, "5,000"},
                                                                 {10000, "10,000"},
                                                                 {20000, "20,000"},
                                                                 {50000, "50,000"},
                                                                 {100000, "100,000"},
                                                                 {200000, "200,000"},
                                                                 {500000, "500,000"}}};

/// The limit of a row; a row that does not exist leaves the limit as it was.
[[nodiscard]] constexpr std::int32_t PageLimitAt(std::int16_t row, std::int32_t asItWas) {
  const auto at = static_cast<std::size_t>(row);
  return row < 0 || at >= kPageLimits.size() ? asItWas : kPageLimits[at].Pages;
}

[[nodiscard]] inline std::vector<std::string> PageLimitCaptions() {
  std::vector<std::string> captions;
  captions.reserve(kPageLimits.size());
  for (const PageLimitChoice& each : kPageLimits) captions.emplace_back(each.Caption);
  return captions;
}

}  // namespace requite
