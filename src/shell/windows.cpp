// SPDX-License-Identifier: MIT
// Opening, finding and closing windows by name.
#include "shell/windows.h"

#include <algorithm>

#include "platform/runtime_failure.h"

namespace requite {

ProgramWindow::ProgramWindow(Windows& windows, std::string name, std::string title)
    : Main(std::move(name)), Others(windows) {
  Main.SetTitle(std::move(title));
}

void ProgramWindow::Close() {
  if (!closed_) Others.Unload(*this);
}

ProgramWindow& Windows::Load(std::string_view name) {
  if (ProgramWindow* const open = Find(name)) return *open;
  DropClosed();
  const auto maker = makers_.find(name);
  if (maker == makers_.end()) throw RuntimeFailure(Failure::InvalidArgument);
  ProgramWindow& made = *open_.emplace_back(maker->second());
  if (OnMade) OnMade(made);
  const ProgramWindow::Running running(made);
  made.Load();
  return made;
}

void Windows::Show(std::string_view name) {
  ProgramWindow& window = Load(name);
  if (window.Closed()) return;  // its Load let events run, and one of them closed it
  window.shown_ = true;
  if (OnShow) OnShow(window);
}

void Windows::Close(std::string_view name) {
  if (ProgramWindow* const open = Find(name)) open->Close();
}

ProgramWindow* Windows::Find(std::string_view name) const {
  for (const auto& each : open_) {
    if (each->Name() == name) return each.get();
  }
  return nullptr;
}

bool Windows::IsShown(std::string_view name) const {
  const ProgramWindow* const window = Find(name);
  return window != nullptr && window->shown_;
}

std::vector<std::string> Windows::ShownNames() const {
  std::vector<std::string> names;
  for (const auto& each : open_) {
    if (each->shown_) names.push_back(each->Name());
  }
  return names;
}

void Windows::Unload(ProgramWindow& window) {
  const auto at =
      std::find_if(open_.begin(), open_.end(), [&](const auto& each) { return each.get() == &window; });
  if (at == open_.end()) return;
  window.closed_ = true;
  closed_.push_back(std::move(*at));
  open_.erase(at);
  const ProgramWindow::Running running(window);
  if (OnClosed) OnClosed(window);
  window.Unload();
}

/// A window may be closed by a handler of its own, so it is destroyed only when the next one is opened.
void Windows::DropClosed() {
  std::erase_if(closed_, [](const auto& each) { return each->running_ == 0; });
}

}  // namespace requite
