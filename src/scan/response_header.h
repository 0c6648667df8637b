// SPDX-License-Identifier: MIT
// Taking the header block out of a response.
#pragma once

#include <string>
#include <string_view>

#include "scan/slices.h"

namespace requite {

/// Takes every occurrence of the header, in any letter case, out of a response that begins with it: a page
/// that repeats its own header loses it there too. The header ends at the first blank line, or has three
/// bytes at most. The time is linear in the response, whatever it holds. A stop breaks it off.
void RemoveHeader(std::string& response, std::string_view header, const Slices& slices);

}  // namespace requite
