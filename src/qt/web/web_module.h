// SPDX-License-Identifier: MIT
// The library of the web views: prepared when the program starts, loaded when the first view is shown.
#pragma once

#include <QString>

#include "qt/web/web_view.h"

namespace requite {

/// Sets what the library needs in the process, and loads nothing. Must run before the application object is
/// made. Environment variables set by the user are kept.
void PrepareWebEngine();

/// The library's file: beside the executable, or where an installation puts it. Empty when it is missing.
[[nodiscard]] QString WebModulePath();

/// Loads the library for good and makes a view. Nothing when it is missing or cannot be loaded.
[[nodiscard]] WebView* MakeViewOfModule(const QString& path, WebViewEvents& events, QWidget* parent);

}  // namespace requite
