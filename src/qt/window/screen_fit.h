// SPDX-License-Identifier: MIT
// Keeps windows within the screen, however small that is.
#pragma once

class QScreen;
class QWidget;

namespace requite {

/// Makes a window no larger than the free part of the screen, with room left for the frame that the window
/// manager draws. A window that has been given a place is moved so that all of it can be seen. A window's
/// layout may still ask for more than that.
void FitToScreen(QWidget& window, const QScreen& screen);

}  // namespace requite
