// SPDX-License-Identifier: MIT
// Which window on screen shows which window of the program.
#include "qt/window/further/further_windows.h"

#include <QTimer>
#include <algorithm>

#include "qt/window/further/changes_window.h"
#include "qt/window/further/editor_window.h"
#include "qt/window/further/harvest_windows.h"
#include "qt/window/further/import_window.h"
#include "qt/window/further/options_window.h"
#include "qt/window/further/small_windows_view.h"

namespace requite {
namespace {

constexpr int kSweepAgain = 100;  // ms

using Maker = std::unique_ptr<FurtherWindow> (*)(ProgramWindow&, const WindowSurroundings&);

template <class View, class Kind>
std::unique_ptr<FurtherWindow> Make(ProgramWindow& window, const WindowSurroundings& surroundings) {
  return std::make_unique<View>(static_cast<Kind&>(window), surroundings);
}

struct Entry {
  std::string_view Name;
  Maker MakeView;
};

constexpr Entry kEntries[] = {
    {"frmAbout", Make<AboutView, frmAbout>},
    {"frmWebsite", Make<WebsiteView, frmWebsite>},
    {"Form5", Make<LogView, Form5>},
    {"Form2", Make<EditorView, Form2>},
    {"Form2a", Make<EditorView, Form2>},
    {"Form2b", Make<EditorView, Form2>},
    {"Form4", Make<ImportView, Form4>},
    {"Form4a", Make<ImportView, Form4>},
    {"frmOptions", Make<OptionsView, frmOptions>},
    {"frmChanges", Make<ChangesView, frmChanges>},
    {"Form3", Make<HarvestView, Form3>},
    {"frmExport", Make<ExportView, frmExport>},
};

}  // namespace

FurtherWindows::FurtherWindows(Windows& windows, const WindowSurroundings& surroundings)
    : windows_(windows), surroundings_(surroundings) {
  windows_.OnShow = [this](ProgramWindow& window) { Show(window); };
  windows_.OnClosed = [this](ProgramWindow& window) { TakeOff(window); };
}

FurtherWindows::~FurtherWindows() {
  windows_.OnShow = nullptr;
  windows_.OnClosed = nullptr;
}

void FurtherWindows::Show(ProgramWindow& window) {
  auto at =
      std::find_if(shown_.begin(), shown_.end(), [&](const auto& each) { return &each->Shown() == &window; });
  if (at == shown_.end()) {
    const auto* const entry = std::find_if(std::begin(kEntries), std::end(kEntries),
                                           [&](const Entry& each) { return each.Name == window.Name(); });
    if (entry == std::end(kEntries)) return;
    // The site's window may outlast the main window, so it does not belong to it.
    WindowSurroundings surroundings = surroundings_;
    if (window.Name() == "frmWebsite") surroundings.Owner = nullptr;
    shown_.push_back(entry->MakeView(window, surroundings));
    at = shown_.end() - 1;
  }
  FurtherWindow& view = **at;
  view.setWindowState(view.windowState() & ~Qt::WindowMinimized);  // show() alone would keep it minimised
  view.show();
  view.raise();
  view.activateWindow();
}

void FurtherWindows::HideOwned() {
  for (const auto& each : shown_) {
    if (each->parentWidget() != nullptr) each->hide();
  }
}

void FurtherWindows::TakeOff(const ProgramWindow& window) {
  const auto at =
      std::find_if(shown_.begin(), shown_.end(), [&](const auto& each) { return &each->Shown() == &window; });
  if (at == shown_.end()) return;
  (*at)->hide();
  leaving_.push_back(std::move(*at));
  shown_.erase(at);
  QTimer::singleShot(0, this, [this] { Sweep(); });
}

/// A window closes in the middle of its own handlers; it is deleted when none of them is running.
void FurtherWindows::Sweep() {
  std::erase_if(leaving_, [](const auto& each) { return each->Shown().RunningCount() == 1; });
  if (!leaving_.empty()) QTimer::singleShot(kSweepAgain, this, [this] { Sweep(); });
}

}  // namespace requite
