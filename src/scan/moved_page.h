// SPDX-License-Identifier: MIT
// Where a page that says it has moved is to be found now.
#pragma once

#include <optional>
#include <string>

#include "scan/page_lines.h"

namespace requite {

/// Reads on from the line in hand to one with an href, and cuts the new address out of it. Without any
/// href it is the last line read, and `pageFull` when that is empty.
[[nodiscard]] std::optional<std::string> MovedAddress(PageLines& lines, const std::string& pageFull,
                                                      const Slices& slices);

}  // namespace requite
