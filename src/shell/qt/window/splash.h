// SPDX-License-Identifier: MIT
// What is on screen while the program starts.
#pragma once

#include <QSplashScreen>

namespace requite {

/// The product's icon, name and version. Its owner shows it, and calls `finish` with the main window.
class Splash : public QSplashScreen {
  Q_OBJECT

 public:
  Splash();
};

}  // namespace requite
