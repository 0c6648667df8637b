// SPDX-License-Identifier: MIT
// The small windows: About, the site's browser window and the posting log.
#pragma once

#include <functional>
#include <string>

#include "platform/controls.h"
#include "shell/label.h"
#include "shell/program_window.h"

namespace requite {

/// The About window: product, version, owner and site. A click on the site opens its browser window.
struct frmAbout : ProgramWindow {
  explicit frmAbout(Windows& windows);

  Label lblProduct;
  Label lblVersion;
  Label lblCompany;
  Button lblWebsite;  ///< shown as a link
};

/// A small browser window that shows the site.
struct frmWebsite : ProgramWindow {
  /// `address` is the site's; "http://" is put before it when it has no scheme. `onUnload` runs when
  /// the window has been closed.
  frmWebsite(Windows& windows, std::string address, std::function<void()> onUnload);
  void Load() override;
  void Unload() override;

  BrowserView WebBrowser1{"WebBrowser1"};

 private:
  std::string address_;
  std::function<void()> onUnload_;
};

/// The posting log: one text box that fills the window, and above it how many requests were answered since
/// the window was opened.
struct Form5 : ProgramWindow {
  explicit Form5(Windows& windows);
  /// One more request was sent.
  void Count(bool answered);

  TextBox Text4{"Text4"};
  Label lblAnswers{"lblAnswers", "No requests yet"};

 private:
  int sent_ = 0;
  int answered_ = 0;
};

}  // namespace requite
