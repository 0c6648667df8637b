// SPDX-License-Identifier: MIT
// Cuts the value of an href out of a line.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/services.h"

namespace requite {

enum class Cut {
  Done,      ///< the value was found
  TooShort,  ///< the line has no value
  Stopped,   ///< the scan was stopped during the search
};

/// Cuts the value out of a line that begins with "href=" and has no second one: `value` becomes a part of the
/// line. A quote directly after "href=" is dropped; the value ends at the next quote or ">", or at its first
/// blank. When there is no end, or only as the last character of the line, the last two characters are lost:
/// ResolveLink repairs some of these cuts. Lets events run in long values and reads `scanning` after that.
[[nodiscard]] Cut CutHrefValue(std::string_view line, const bool& scanning, EventLoop& events,
                               std::string_view& value);

/// The value that CutHrefValue cuts out of a line where that is easy, as it is for nearly all links: the
/// value has no blank, has from 1 to `longest` bytes and ends before the last character of the line.
[[nodiscard]] std::optional<std::string_view> PlainHrefValue(std::string_view line, std::size_t longest);

}  // namespace requite
