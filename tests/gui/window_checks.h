// SPDX-License-Identifier: MIT
// What every window must show whole, say to assistive programs and offer to the keyboard. Each check returns
// the faults that it found in a window on screen.
#pragma once

#include <QStringList>

class QColor;
class QWidget;

namespace requite::test {

/// Texts that are cut: captions of buttons, labels, tabs, boxes and columns, and numbers in lists.
[[nodiscard]] QStringList CutTexts(const QWidget& window);

/// Edges beyond the screen, with the room that a window manager's title takes.
[[nodiscard]] QStringList BeyondTheScreen(const QWidget& window);

/// Places where Tab leads up or to the left without reaching a new column.
[[nodiscard]] QStringList TabLeapsBack(const QWidget& window);

/// Controls that have no name or no role.
[[nodiscard]] QStringList Nameless(const QWidget& window);

/// Texts and pictures whose contrast with their background is below 4.5 to 1. Disabled ones may be faint.
[[nodiscard]] QStringList Faint(const QWidget& window);

/// The ratio of their luminances, from 1 to 21.
[[nodiscard]] double Contrast(const QColor& a, const QColor& b);

}  // namespace requite::test
