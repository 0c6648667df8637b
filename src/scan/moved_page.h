// SPDX-License-Identifier: MIT
// The new address of a page that has moved.
#pragma once

#include <optional>
#include <string>

#include "scan/page_lines.h"

namespace requite {

/// Reads from the current line on to one with an href and cuts the new address out of it. Without an href the
/// result is the last line, or `pageFull` when that is empty. Nothing after a stop.
[[nodiscard]] std::optional<std::string> MovedAddress(PageLines& lines, const std::string& pageFull,
                                                      const Slices& slices);

}  // namespace requite
