// SPDX-License-Identifier: MIT
// The menu at the Open button: recent projects, and the copies in the folder "Backup".
#pragma once

#include <QMenu>
#include <functional>
#include <string>

#include "qt/window/controls/user_events.h"
#include "shell/main_window/work_keeper.h"

class QToolButton;

namespace requite {

/// The paths of recent projects are in the file of the window's layout, not among the settings.
class OpenMenu : public QMenu {
  Q_OBJECT

 public:
  /// The button keeps its click and gets the menu beside it, also at the keys Alt+Down and Down. All must
  /// outlive the menu, which belongs to the button.
  OpenMenu(QToolButton& button, Form1& form, const WorkKeeper& keeper, const UserEvents& user);

  /// The project of this path was opened or saved.
  void Remember(const std::string& path);

  /// Opens a copy as an unsaved project.
  std::function<void(const std::string& copy)> OnCopy;

 private:
  void Fill();
  void AddRecent();
  void AddCopies(const QString& title, const std::vector<std::string>& paths, int stemBegins);

  Form1& form_;
  const WorkKeeper& keeper_;
  const UserEvents& user_;
};

}  // namespace requite
