// SPDX-License-Identifier: MIT
// The program's own icon, which is part of the executable.
#pragma once

#include <QIcon>

namespace requite {

/// In all the sizes that desktops ask for. Needs the application object.
[[nodiscard]] QIcon ProductIcon();

}  // namespace requite
