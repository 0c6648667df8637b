// SPDX-License-Identifier: MIT
// The base of all windows but the main one: a title, controls by name, and a way to close.
#pragma once

#include <string>

#include "platform/controls.h"
#include "shell/control_index.h"

namespace requite {

class Windows;

/// A window other than the main window. `Windows` makes and owns it. A closed window is kept, hidden, until
/// none of its handlers can still be running.
struct ProgramWindow {
  ProgramWindow(Windows& windows, std::string name, std::string title);
  virtual ~ProgramWindow() = default;
  ProgramWindow(const ProgramWindow&) = delete;
  ProgramWindow& operator=(const ProgramWindow&) = delete;

  /// Runs before the window is shown. May throw RuntimeFailure.
  virtual void Load() {}
  /// Runs after the window was closed, whoever closed it.
  virtual void Unload() {}

  /// For the close box and for the window's own buttons. A second call does nothing.
  void Close();
  [[nodiscard]] bool Closed() const { return closed_; }
  [[nodiscard]] const std::string& Name() const { return Main.Name(); }
  /// How many handlers and widgets still need the window.
  [[nodiscard]] int RunningCount() const { return running_; }

  Window Main;
  ControlIndex Controls;
  Windows& Others;

  /// Keeps the window while a handler that lets events run is on the stack.
  class Running {
   public:
    explicit Running(ProgramWindow& window) : window_(window) { ++window_.running_; }
    ~Running() { --window_.running_; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

   private:
    ProgramWindow& window_;
  };

 private:
  friend class Windows;

  int running_ = 0;
  bool closed_ = false;
  bool shown_ = false;
};

}  // namespace requite
