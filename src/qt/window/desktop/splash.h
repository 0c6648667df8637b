// SPDX-License-Identifier: MIT
// The picture on screen while the program starts.
#pragma once

#include <QSplashScreen>

namespace requite {

/// The product's icon, name and version. Its owner shows it, and calls `finish` with the main window.
class Splash : public QSplashScreen {
  Q_OBJECT

 public:
  Splash();

 protected:
  /// A click does not end the splash: it stays until the main window is there.
  void mousePressEvent(QMouseEvent*) override {}
};

}  // namespace requite
