// SPDX-License-Identifier: MIT
// Opens a URL from the lists of the Links tab in the Web tab of the main window, or outside.
#pragma once

#include <string>

#include "model/record_list.h"
#include "model/records.h"
#include "platform/controls.h"
#include "platform/services.h"

namespace requite {

/// The controls of the main window that it works on.
struct WebTabControls {
  TabStrip& TabStrip1;
  BrowserView& WebBrowser1;
  ListView& List3;
  RecordList<ErrorEntry>& lstErr;
  Control& lblErr;
  TextBox& txtURL;
};

class WebTab {
 public:
  WebTab(WebTabControls controls, Shell& shell) : controls_(controls), shell_(shell) {}

  /// Shows the Web tab, writes the URL to `txtURL` and opens it without script error dialogs. A text
  /// without the letters "http" anywhere gets "http://" in front.
  void BrowseInWebTab(const std::string& url);

  /// For the start of a label edit in `lstErr`: opens the selected row's URL in the Web tab. Unlike
  /// BrowseInWebTab it leaves `txtURL` and the silent mode of the browser alone. Does nothing without a
  /// selected row.
  void OpenErrorInside();
  /// For a double click in `lstErr`: opens the selected row's URL outside. Does nothing without a
  /// selected row.
  void OpenErrorOutside();

 private:
  void ShowBrowser();

  WebTabControls controls_;
  Shell& shell_;
};

}  // namespace requite
