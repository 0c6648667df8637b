// SPDX-License-Identifier: MIT
// Cutting the value of an href out of a line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/services.h"

namespace requite {

enum class Cut {
  Done,      ///< the value is there
  TooShort,  ///< the line holds no value
  Stopped,   ///< the scan was stopped while the value was looked for
};

/// Cuts the value of the href out of a line that begins with it; the line has no other. A quote directly
/// behind "href=" goes, the value ends at the next quote or ">", and at its first blank. A line on which no
/// end comes, or only as its last character, loses its last two characters: ResolveLink mends some of what
/// that cuts off. Lets events run in long values.
[[nodiscard]] Cut CutHrefValue(std::string_view line, const bool& scanning, EventLoop& events,
                               std::string& value);

}  // namespace requite
