// SPDX-License-Identifier: MIT
// The windows beside the main window: which there are, which are open, and how one is opened by its name.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "shell/program_window.h"

namespace requite {

/// Each window exists at most once. Opening one that is open brings it to the front as it is.
class Windows {
 public:
  using Maker = std::function<std::unique_ptr<ProgramWindow>()>;

  void Register(std::string name, Maker make) { makers_[std::move(name)] = std::move(make); }
  [[nodiscard]] bool IsKnown(std::string_view name) const { return makers_.contains(name); }

  /// Loads the window if it is not loaded yet, unseen. Throws what its Load throws.
  /// The name must be a registered one.
  ProgramWindow& Load(std::string_view name);
  /// Loads the window if needed, shows it and brings it to the front.
  void Show(std::string_view name);
  /// Closes the window if it is loaded.
  void Close(std::string_view name);
  void CloseAll();

  /// A loaded window, on show or not, or null.
  [[nodiscard]] ProgramWindow* Find(std::string_view name) const;
  [[nodiscard]] bool IsShown(std::string_view name) const;
  /// The windows on show, in the order in which they were loaded.
  [[nodiscard]] std::vector<std::string> ShownNames() const;

  /// For the toolkit (or the console): a window was made but has not run its Load yet; it is to be
  /// shown or brought to the front; it has been closed and its controls are not to be used any more.
  std::function<void(ProgramWindow&)> OnMade;
  std::function<void(ProgramWindow&)> OnShow;
  std::function<void(ProgramWindow&)> OnClosed;

 private:
  friend struct ProgramWindow;

  void Unload(ProgramWindow& window);
  void DropClosed();

  std::map<std::string, Maker, std::less<>> makers_;
  std::vector<std::unique_ptr<ProgramWindow>> open_;
  std::vector<std::unique_ptr<ProgramWindow>> closed_;
};

}  // namespace requite
