// SPDX-License-Identifier: MIT
// All windows but the main one: which exist, which are open, and how to open one by its name.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "shell/program_window.h"

namespace requite {

/// Each window exists at most once. Opening it again brings it to the front unchanged.
class Windows {
 public:
  using Maker = std::function<std::unique_ptr<ProgramWindow>()>;

  void Register(std::string name, Maker make) { makers_[std::move(name)] = std::move(make); }
  [[nodiscard]] bool IsKnown(std::string_view name) const { return makers_.contains(name); }

  /// Loads the window, hidden, unless it is loaded already. Throws what its Load throws, and
  /// InvalidArgument for a name that is not registered.
  ProgramWindow& Load(std::string_view name);
  /// Loads the window if needed, shows it and brings it to the front.
  void Show(std::string_view name);
  /// Closes the window if it is loaded.
  void Close(std::string_view name);

  /// The window if it is loaded, shown or not; otherwise null.
  [[nodiscard]] ProgramWindow* Find(std::string_view name) const;
  [[nodiscard]] bool IsShown(std::string_view name) const;
  /// The windows that are shown, in the order in which they were loaded.
  [[nodiscard]] std::vector<std::string> ShownNames() const;

  /// For the toolkit or the console. OnMade: a window was made and its Load runs next. OnShow: show it or
  /// bring it to the front. OnClosed: it was closed; do not use its controls any more.
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
