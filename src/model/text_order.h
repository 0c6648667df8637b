// SPDX-License-Identifier: MIT
// Sorts many texts, ignoring letter case, and compares only few of them completely.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace requite {

enum class Direction { Ascending, Descending };

/// The indices of the texts in the order of CompareText; equal texts keep their order, in both directions. At
/// most 2^32 - 1 texts.
[[nodiscard]] std::vector<std::uint32_t> OrderOf(const std::vector<std::string_view>& texts,
                                                 Direction direction);

}  // namespace requite
