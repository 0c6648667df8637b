// SPDX-License-Identifier: MIT
// Shows and removes the windows on screen as the program opens and closes them.
#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "qt/window/further/further_window.h"
#include "shell/windows.h"

namespace requite {

class FurtherWindows : public QObject {
  Q_OBJECT

 public:
  /// The surroundings are those of a window that belongs to the main one. All must outlive this object.
  FurtherWindows(Windows& windows, const WindowSurroundings& surroundings);
  ~FurtherWindows() override;

  /// Hides the windows that belong to the main window, without closing them.
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
