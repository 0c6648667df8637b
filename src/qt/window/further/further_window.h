// SPDX-License-Identifier: MIT
// The base of every window on screen but the main one.
#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "platform/services.h"
#include "qt/window/controls/control_views.h"
#include "qt/window/lists/list_table.h"
#include "shell/program_window.h"

class QLabel;
class QPushButton;
class QTableView;

namespace requite {

/// What a window on screen needs; all of it must outlive the window.
struct WindowSurroundings {
  const EventGuard& Guard;
  const UserEvents& User;
  ViewRefresh& Refresh;  ///< one for all windows: a handler of one may change what others show
  Services& Platform;
  QWidget& MainWindow;
  QWidget* Owner;  ///< the main window; null for a window that may outlast it
};

/// Shows one ProgramWindow: derived classes lay out widgets and bind them. The close box and Escape close
/// the ProgramWindow, which removes this window. Size and position are remembered by the window's name.
class FurtherWindow : public QWidget {
  Q_OBJECT

 public:
  FurtherWindow(ProgramWindow& window, const WindowSurroundings& surroundings);
  ~FurtherWindow() override;

  [[nodiscard]] ProgramWindow& Shown() const { return window_; }
  /// Takes its last size and place; the first time, this size in the middle of the main window.
  void RestoreSize(QSize first);

 protected:
  void closeEvent(QCloseEvent* event) override;

  /// Widgets bound to their controls; the caller lays them out. `mnemonic` is the caption with its "&".
  QLabel* NewLabel(TextBox& control, QWidget* buddy = nullptr);
  QPushButton* NewButton(Button& control, const QString& mnemonic = {});
  /// `shares`: see ColumnFit.
  QTableView* NewTable(ListView& list, const QString& emptyText, const QString& accessibleName,
                       std::vector<int> shares = {});
  /// The menu of a list's rows; `address` is the column that holds one, or -1. For a view of NewTable.
  void AddMenu(QTableView& view, int address);

  const WindowSurroundings& Around() const { return surroundings_; }

 private:
  ProgramWindow& window_;
  const ProgramWindow::Running keptWhileShown_{window_};
  const WindowSurroundings surroundings_;
  std::vector<std::unique_ptr<ListTable>> tables_;

 protected:
  Binder bind_;
};

}  // namespace requite
