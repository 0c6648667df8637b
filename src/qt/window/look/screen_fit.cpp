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
  // A window that was not shown yet may still grow to what its layout needs.
  const QSize needed = window.minimumSizeHint();
  const QSize size = window.size().boundedTo(room.size()).expandedTo(needed);
  if (size != window.size()) window.resize(size);
  if (!window.testAttribute(Qt::WA_Moved)) return;  // the window manager chooses the place
  const auto within = [](int at, int first, int last) { return std::max(first, std::min(at, last)); };
  const QPoint at(within(window.x(), room.left(), room.right() + 1 - size.width()),
                  within(window.y(), room.top() - kFrame.top(), room.bottom() + 1 - size.height()));
  if (at != window.pos()) window.move(at);
}

}  // namespace requite
