// SPDX-License-Identifier: MIT
// The order of many texts, ignoring letter case, found without comparing most of them whole.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace requite {

enum class Direction { Ascending, Descending };

/// The places of the texts in their order by CompareText; equal texts keep their order, in both directions.
/// At most 2^32 - 1 texts.
[[nodiscard]] std::vector<std::uint32_t> OrderOf(const std::vector<std::string_view>& texts,
                                                 Direction direction);

}  // namespace requite
