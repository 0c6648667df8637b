// SPDX-License-Identifier: MIT
// Removes the header block from a response.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "scan/slices.h"

namespace requite {

/// Returns where the body begins in a response that begins with the header, and removes every occurrence of
/// the header, in any letter case, from the body: a page that repeats its own header loses it there too. The
/// header must end at the first blank line of the response, or have at most three bytes. Takes linear time
/// whatever the response holds. Ends early after a stop.
[[nodiscard]] std::size_t RemoveHeader(std::string& response, std::string_view header, const Slices& slices);

}  // namespace requite
