// SPDX-License-Identifier: MIT
// Binds plain control objects to widgets. The control decides; the widget shows it and passes on what
// the user does.
#pragma once

#include <QWidget>
#include <functional>
#include <limits>
#include <memory>
#include <vector>

#include "platform/controls.h"
#include "qt/window/controls/user_events.h"
#include "qt/window/controls/view_refresh.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QProgressBar;
class QStatusBar;
class QTabBar;

namespace requite {

/// Makes and keeps the views of one window. Widgets get the control's name as their object name, its
/// tool tip, and its enabled and visible state; the widgets must outlive the binder's last refresh.
class Binder {
 public:
  Binder(ViewRefresh& refresh, const UserEvents& user);
  ~Binder();
  Binder(const Binder&) = delete;
  Binder& operator=(const Binder&) = delete;

  /// Binds only the state, for a frame or the place of a browser.
  void BindState(Control& control, QWidget& widget);
  /// `mnemonic` is the caption with its "&", for buttons whose caption never changes.
  void Bind(Button& control, QAbstractButton& widget, const QString& mnemonic = {});
  void Bind(TextBox& control, QLineEdit& widget);
  /// Of a text longer than `longest` bytes only the last lines are shown, at least half of `longest`.
  void Bind(TextBox& control, QPlainTextEdit& widget,
            std::size_t longest = std::numeric_limits<std::size_t>::max());
  void BindLabel(TextBox& control, QLabel& widget);
  /// A label that shows any text in one line and never widens the window.
  void BindLine(TextBox& control, QLabel& widget);
  void Bind(CheckBox& control, QCheckBox& widget);
  void Bind(OptionGroup& control, const std::vector<QAbstractButton*>& widgets);
  void Bind(ComboBox& control, QComboBox& widget);
  /// A combo box to pick from, not to type into.
  void BindDropDownList(ComboBox& control, QComboBox& widget);
  void Bind(ProgressBar& control, QProgressBar& widget);
  void Bind(StatusBar& control, QStatusBar& widget);
  /// `onShown` gets the number of the tab on show, from 1; `mnemonics` are the captions with their "&".
  void Bind(TabStrip& control, QTabBar& widget, const std::vector<QString>& mnemonics,
            std::function<void(int number)> onShown);
  /// Fills the menu with the control's entries; `texts` are the same with "&" and, after a tab, the entry's
  /// shortcut keys, which work while the menu's window is active.
  void Bind(Menu& control, QMenu& widget, const std::vector<QString>& texts = {});

 private:
  class View;

  void Keep(Control& control, QWidget& widget, std::function<void()> show);

  ViewRefresh& refresh_;
  const UserEvents& user_;
  std::vector<std::unique_ptr<View>> views_;
};

}  // namespace requite
