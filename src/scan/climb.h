// SPDX-License-Identifier: MIT
// Links that begin with "..".
#pragma once

#include <string>

namespace requite {

/// The link seen from `directory`, one directory up for each ".." at its front.
/// After each step up, every "/." of the rest loses its slash: of three and more ".." in a row all but
/// the first run together, and the rest of their dots stays in the link.
/// The time is near linear in the link, also for links made of dots and slashes alone.
[[nodiscard]] std::string Climb(std::string directory, std::string link);

}  // namespace requite
