// SPDX-License-Identifier: MIT
// The frame's size is not known before the window is shown, so some room is left for it.
#include "qt/window/look/screen_fit.h"

#include <QMargins>
#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace requite {
namespace {

constexpr QMargins kFrame(4, 28, 4, 4);

}  // namespace

void FitToScreen(QWidget& window, const QScreen& screen) {
  const QRect room = screen.availableGeometry().marginsRemoved(kFrame);
  const QSize size = window.size().boundedTo(room.size());
  if (size != window.size()) window.resize(size);
  if (!window.testAttribute(Qt::WA_Moved)) return;  // the window manager chooses the place
  const QPoint at(std::clamp(window.x(), room.left(), room.right() + 1 - size.width()),
                  std::clamp(window.y(), room.top() - kFrame.top(), room.bottom() + 1 - size.height()));
  if (at != window.pos()) window.move(at);
}

}  // namespace requite
