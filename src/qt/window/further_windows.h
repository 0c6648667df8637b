// SPDX-License-Identifier: MIT
// Brings the windows beside the main one on screen as the program shows them, and takes them off.
#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "qt/window/further_window.h"
#include "shell/windows.h"

namespace requite {

class FurtherWindows : public QObject {
  Q_OBJECT

 public:
  /// The surroundings are those of a window that belongs to the main one. All must outlive this object.
  FurtherWindows(Windows& windows, const WindowSurroundings& surroundings);
  ~FurtherWindows() override;

  /// Takes the windows that belong to the main window off the screen, without closing them.
  void HideOwned();

 private:
  void Show(ProgramWindow& window);
  void TakeOff(const ProgramWindow& window);
  void Sweep();

  Windows& windows_;
  const WindowSurroundings surroundings_;
  std::vector<std::unique_ptr<FurtherWindow>> shown_;
  std::vector<std::unique_ptr<FurtherWindow>> leaving_;
};

}  // namespace requite
