// SPDX-License-Identifier: MIT
// Links that begin with "..".
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// Makes a link be seen from `directory`, in place, one directory up for each ".." at its front.
/// After each step up, every "/." of the rest loses its slash: of three and more ".." in a row all but
/// the first run together, and the rest of their dots stays in the link.
/// The time is near linear in the link, also for links made of dots and slashes alone.
void Climb(std::string_view directory, std::string& link);

}  // namespace requite
