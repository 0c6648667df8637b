// SPDX-License-Identifier: MIT
// The colours of a dark desktop, for tests and pictures.
#pragma once

#include <QPalette>

namespace requite::test {

inline QPalette DarkPalette() {
  QPalette palette(QColor(53, 54, 58), QColor(45, 46, 50));
  palette.setColor(QPalette::Base, QColor(32, 33, 36));
  palette.setColor(QPalette::AlternateBase, QColor(41, 42, 46));
  palette.setColor(QPalette::Highlight, QColor(61, 120, 190));
  palette.setColor(QPalette::Link, QColor(130, 180, 255));
  return palette;
}

}  // namespace requite::test
