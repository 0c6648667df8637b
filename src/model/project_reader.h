// SPDX-License-Identifier: MIT
// The reader of the project file format, which does not mirror the writer.
#pragma once

#include <cstddef>
#include <string_view>

#include "model/project.h"

namespace requite {

/// Adds what the text of a project file holds to the project. The first line is a Main Site,
/// whatever it says; the others are told apart by their markers. Linking Sites go to the list
/// `CurrentMainSite`, which counts up with each Main Site behind the first.
///
/// Returns whether the end of the text was reached. A line that lacks a field, an icon that is no
/// number or a Main Site above 32767 ends the reading; what was read so far stays, a row with its
/// first fields alone included. An empty text has no first line, so it gives false. `lastLine`, if given,
/// gets the number of the last line that was begun, counted from 1; 0 for an empty text.
bool ReadProjectText(std::string_view text, Project& project, std::size_t* lastLine = nullptr);

}  // namespace requite
