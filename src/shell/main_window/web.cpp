// SPDX-License-Identifier: MIT
// The commands of the browser.
#include "shell/main_window/web.h"

#include "platform/runtime_failure.h"

namespace requite {

void WebControls::Wire() {
  // At either end of the history there is nothing to tell the user.
  cmdBack.OnClick = [this] { PassOver([this] { WebBrowser1.GoBack(); }); };
  cmdForward.OnClick = [this] { PassOver([this] { WebBrowser1.GoForward(); }); };
  cmdWebStop.OnClick = [this] { PassOver([this] { WebBrowser1.Stop(); }); };
  cmdRefresh.OnClick = [this] { PassOver([this] { WebBrowser1.Refresh(); }); };
  cmdGo.OnClick = [this] { WebBrowser1.Navigate(txtURL.Text()); };
  txtURL.OnEnter = [this] { cmdGo.Click(); };
  WebBrowser1.OnDocumentComplete = [this] { txtURL.SetText(WebBrowser1.LocationUrl()); };
}

}  // namespace requite
