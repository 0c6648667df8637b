// SPDX-License-Identifier: MIT
// Reads back every byte that the writer of the project format wrote, unlike the reader of project files.
#pragma once

#include <string_view>

#include "model/project.h"

namespace requite {

/// Fills an empty project from a text of ProjectText, so that ProjectText gives the same text again: with
/// descriptions, empty Page Builder texts and bars in values, which the reader of project files loses. The
/// order of the rows is that of the text, also in a sorted list. Only a line end in a value is taken for one
/// of the text. Colours, selections and the flags of the project are not in the text.
///
/// Returns false, with the project as it was, for a text that the writer did not write, such as a file that
/// was cut short or edited by hand.
bool RestoreProjectText(std::string_view text, Project& project);

}  // namespace requite
