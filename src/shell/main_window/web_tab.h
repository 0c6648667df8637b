// SPDX-License-Identifier: MIT
// Opening a URL in the Web tab of the main window, or outside, from the lists of the Links tab.
#pragma once

#include <string>

#include "model/record_list.h"
#include "model/records.h"
#include "platform/controls.h"
#include "platform/services.h"

namespace requite {

/// The controls of the main window that take part.
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

  /// Shows the Web tab, writes the URL to `txtURL` and goes there without script error dialogs.
  /// A text without the letters "http" anywhere gets "http://" in front.
  void BrowseInWebTab(const std::string& url);

  /// The start of a label edit in `lstErr`: the selected row's URL opens in the Web tab. Unlike
  /// BrowseInWebTab it leaves `txtURL` and the browser's silent mode alone. Nothing without a selected row.
  void OpenErrorInside();
  /// A double click in `lstErr`: the selected row's URL opens outside. Nothing without a selected row.
  void OpenErrorOutside();

 private:
  void ShowBrowser();

  WebTabControls controls_;
  Shell& shell_;
};

}  // namespace requite
