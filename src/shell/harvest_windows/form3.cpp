// SPDX-License-Identifier: MIT
// How the window starts, feeds and ends its harvest.
#include "shell/harvest_windows/form3.h"

namespace requite {

Form3::Form3(Windows& windows, const Form3Needs& needs)
    : ProgramWindow(windows, "Form3", "Domain Search"),
      Harvest({needs.txtSearch, needs.Combo1, needs.Combo2, needs.StatusBar1, Text1, WebBrowser1, needs.Sites,
               needs.Database, needs.Platform.EventLoop, needs.Folder, needs.UpdateStats,
               needs.cmdDoSearch_Click, [this] { Main.SetVisible(false); }, [this] { Close(); }}),
      fetcher_(WebBrowser1, needs.Platform.Internet, [this](const std::function<void()>& complete) {
        const Running running(*this);
        complete();
      }) {
  Text1.SetEnabled(false);
  Text1.ToolTip = "This shows the number of unique .com, .org and .net domain names found.";
  WebBrowser1.ToolTip = "Searching for unique .com, .net and .org domain names.";
  WebBrowser1.OnDocumentComplete = [this] { Harvest.OnResultPageComplete(fetcher_.Page()); };
  Controls.Add(Text1);
  Controls.Add(WebBrowser1);
}

void Form3::Load() { Harvest.Start(); }

void Form3::Unload() {
  Harvest.Abandon();
  fetcher_.Stop();
}

}  // namespace requite
