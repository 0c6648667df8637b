// SPDX-License-Identifier: MIT
// The library of the web views: prepared at the program's start, loaded when the first view is shown.
#pragma once

#include <QString>

#include "qt/web/web_view.h"

namespace requite {

/// Sets what the library needs of the process, and loads nothing. Must run before the application object is
/// made. Variables that the user has set stay.
void PrepareWebEngine();

/// The file of the library: beside the executable, or where an installation puts it. Empty when it is not
/// there.
[[nodiscard]] QString WebModulePath();

/// Loads the library, which then stays, and makes a view. Nothing when it is missing or cannot be loaded.
[[nodiscard]] WebView* MakeViewOfModule(const QString& path, WebViewEvents& events, QWidget* parent);

}  // namespace requite
