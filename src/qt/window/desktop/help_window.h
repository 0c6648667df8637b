// SPDX-License-Identifier: MIT
// The help in a window of the program, for desktops without a program that shows help files.
#pragma once

#include <QString>

namespace requite {

/// Shows the pages in the folder "help" beside the help file, or brings them to the front. False when
/// `file` is not a help file or has no pages beside it.
bool ShowHelpPages(const QString& file);

}  // namespace requite
