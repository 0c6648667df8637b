// SPDX-License-Identifier: MIT
// Resolving links that begin with "..".
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// Makes a link relative to `directory` absolute, in place: one directory up for each ".." at its start.
/// After each step up, every "/." in the rest of the link loses its slash. So of three or more ".." in a row,
/// all after the first run together, and dots stay in the link.
/// Takes nearly linear time, even for a link of dots and slashes only.
void Climb(std::string_view directory, std::string& link);

}  // namespace requite
