// SPDX-License-Identifier: MIT
// The reader of the project file format. It does not read everything as the writer wrote it.
#pragma once

#include <cstddef>
#include <string_view>

#include "model/project.h"

namespace requite {

/// Adds what the text of a project file holds to the project. The first line is always a Main Site; the
/// markers of the other lines tell what they are. Linking Sites are added to the list `CurrentMainSite`,
/// which is raised by each Main Site after the first.
///
/// Returns whether the end of the text was reached. A line with too few fields, an icon that is not a number
/// or a Main Site above 32767 ends the reading. What was read so far stays, even a row with only its first
/// fields. False for an empty text, which has no first line. `lastLine`, if given, is set to the number of
/// the last line that was begun, counted from 1; 0 for an empty text.
bool ReadProjectText(std::string_view text, Project& project, std::size_t* lastLine = nullptr);

}  // namespace requite
