// SPDX-License-Identifier: MIT
// The window of a domain harvest. Loading it starts the harvest. No visible command opens it.
#pragma once

#include <cstdint>
#include <functional>

#include "harvest/domain_harvest.h"
#include "harvest/page_fetcher.h"
#include "shell/program_window.h"

namespace requite {

/// What the window uses of the main window; all of it must outlive this one.
struct Form3Needs {
  const TextBox& txtSearch;
  const ComboBox& Combo1;
  const ComboBox& Combo2;
  requite::StatusBar& StatusBar1;
  Project& Sites;
  modDatabase& Database;
  Services& Platform;
  const ProgramFolder& Folder;
  std::function<void(Counted kind)> UpdateStats;
  std::function<void()> cmdDoSearch_Click;
};

struct Form3 : ProgramWindow {
  Form3(Windows& windows, const Form3Needs& needs);
  /// Throws RuntimeFailure when the database cannot be emptied.
  void Load() override;
  void Unload() override;

  TextBox Text1{"Text1", "Status..."};
  BrowserView WebBrowser1{"WebBrowser1"};
  DomainHarvest Harvest;

 private:
  PageFetcher fetcher_;
};

}  // namespace requite
