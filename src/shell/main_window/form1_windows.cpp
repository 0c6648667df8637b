// SPDX-License-Identifier: MIT
// The windows that the main window opens.
#include "shell/editors/form2.h"
#include "shell/imports/form4.h"
#include "shell/main_window/form1.h"
#include "shell/options/frm_options.h"
#include "shell/product.h"
#include "shell/small_windows.h"

namespace requite {

void Form1::WireWindows() {
  Windows.Register("frmAbout", [this] { return std::make_unique<frmAbout>(Windows); });
  Windows.Register("frmWebsite", [this] {
    return std::make_unique<frmWebsite>(Windows, "file://" + Folder.File(product::kHomePage),
                                        [this] { frmWebsite_Unload(); });
  });
  Windows.Register("Form5", [this] { return std::make_unique<Form5>(Windows); });
  Windows.Register("frmOptions", [this] {
    return std::make_unique<frmOptions>(Windows, Settings, Folder, Platform.Dialogs);
  });
  RegisterEditors(Windows, Sites, Platform.Dialogs);
  RegisterImports(
      Windows, {Sites, State, Settings, Platform.Internet, Platform.EventLoop, Platform.Dialogs, Folder, {}},
      NeedsOfPosting());
  cmdImport.OnClick = [this] { Windows.Show("Form4"); };
  Command7.OnClick = cmdImport.OnClick;
  cmdImport2.OnClick = [this] { Windows.Show("Form4a"); };
  Command9.OnClick = [this] { Windows.Show("frmOptions"); };
  cmdEdit.OnClick = [this] { requite::cmdEdit(Sites, Windows); };
  cmdEditMain.OnClick = [this] { requite::cmdEditMain(Sites, Windows); };
  cmdWebsite.OnClick = [this] { Windows.Show("frmWebsite"); };
  mnuAbout.OnClick = [this](int) { Windows.Show("frmAbout"); };
}

/// The site's browser window may outlast the main window; then the program ends with it.
void Form1::frmWebsite_Unload() {
  if (endsWithWebsite_ && OnEnd) OnEnd();
}

}  // namespace requite
