// SPDX-License-Identifier: MIT
// What every window beside the main window is: a title, controls by name, and a way to close.
#pragma once

#include <string>

#include "platform/controls.h"
#include "shell/control_index.h"

namespace requite {

class Windows;

/// A window beside the main window. Its struct holds the named controls and their handlers; it is made
/// by `Windows`, which owns it. A closed window lives on, unseen, until no handler of it can be running.
struct ProgramWindow {
  ProgramWindow(Windows& windows, std::string name, std::string title);
  virtual ~ProgramWindow() = default;
  ProgramWindow(const ProgramWindow&) = delete;
  ProgramWindow& operator=(const ProgramWindow&) = delete;

  /// What the window does as it is loaded, before it is shown. May throw RuntimeFailure.
  virtual void Load() {}
  /// What is left to do once the window has been closed, by whomever.
  virtual void Unload() {}

  /// Closes the window: the user's close box and its own buttons come here. A second call does nothing.
  void Close();
  [[nodiscard]] bool Closed() const { return closed_; }
  [[nodiscard]] const std::string& Name() const { return Main.Name(); }
  /// How many handlers (and widgets that show it) need the window to stay.
  [[nodiscard]] int RunningCount() const { return running_; }

  Window Main;
  ControlIndex Controls;
  Windows& Others;

  /// Stands on the stack of a handler that lets events run, so that the window outlives it.
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
