// SPDX-License-Identifier: MIT
// Keeps windows within the screen, even a small one.
#pragma once

class QScreen;
class QWidget;

namespace requite {

/// Makes a window no larger than the free part of the screen, with room left for the frame that the window
/// manager draws. A window that has a place is moved so that all of it is visible. A window's
/// layout may still need more room.
void FitToScreen(QWidget& window, const QScreen& screen);

}  // namespace requite
