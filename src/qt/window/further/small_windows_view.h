// SPDX-License-Identifier: MIT
// About, the site's browser window and the log of a posting, on screen.
#pragma once

#include "qt/window/further/further_window.h"
#include "shell/small_windows.h"

namespace requite {

class AboutView final : public FurtherWindow {
 public:
  AboutView(frmAbout& window, const WindowSurroundings& surroundings);
};

class WebsiteView final : public FurtherWindow {
 public:
  WebsiteView(frmWebsite& window, const WindowSurroundings& surroundings);
};

class LogView final : public FurtherWindow {
 public:
  LogView(Form5& window, const WindowSurroundings& surroundings);

 private:
  QPushButton* NewCommand(const QString& caption, const QString& name, const QString& toolTip,
                          void (LogView::*command)());
  void Copy();
  void Save();

  Form5& window_;
};

}  // namespace requite
