// SPDX-License-Identifier: MIT
// What the user sees when no program opened a document, a folder or an address.
#pragma once

#include <QString>

namespace requite {

/// Help files are shown as pages in a window of the program. For anything else a box shows the path or the
/// address and offers to copy it. Returns at once.
void ShowUnopened(const QString& what);

}  // namespace requite
