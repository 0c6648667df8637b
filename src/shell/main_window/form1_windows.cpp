// SPDX-License-Identifier: MIT
// How each window that the main window opens is made.
#include "shell/changes/frm_changes.h"
#include "shell/editors/form2.h"
#include "shell/harvest_windows/form3.h"
#include "shell/harvest_windows/frm_export.h"
#include "shell/imports/form4.h"
#include "shell/main_window/form1.h"
#include "shell/options/frm_options.h"
#include "shell/product.h"
#include "shell/small_windows.h"

namespace requite {

void Form1::RegisterWindows() {
  Windows.Register("frmAbout", [this] { return std::make_unique<frmAbout>(Windows); });
  Windows.Register("frmWebsite", [this] {
    return std::make_unique<frmWebsite>(Windows, "file://" + Folder.File(product::kHomePage),
                                        [this] { frmWebsite_Unload(); });
  });
  Windows.Register("Form5", [this] { return std::make_unique<Form5>(Windows); });
  Windows.Register("frmOptions", [this] {
    return std::make_unique<frmOptions>(Windows, Settings, Folder, Platform.Dialogs);
  });
  Windows.Register("frmChanges", [this] {
    return std::make_unique<frmChanges>(
        Windows, ChangesNeeds{Sites, Settings, Folder, Platform, [this] { return Files.OpenPath(); }});
  });
  RegisterEditors(Windows, Sites, Platform.Dialogs);
  RegisterImports(
      Windows, {Sites, State, Settings, Platform.Internet, Platform.EventLoop, Platform.Dialogs, Folder, {}},
      NeedsOfPosting());
}

void Form1::RegisterHarvestWindows() {
  Windows.Register("Form3", [this] {
    return std::make_unique<Form3>(
        Windows,
        Form3Needs{txtSearch, Combo1, Combo2, StatusBar1, Sites, Database, Platform, Folder,
                   [this](Counted kind) { UpdateStats(kind); }, [this] { Scan.cmdDoSearch_Click(); }});
  });
  Windows.Register("frmExport", [this] {
    return std::make_unique<frmExport>(Windows, Sites.List3, Database, Platform.Dialogs, Folder);
  });
}

void Form1::ShowChangesOfScan() {
  ProgramWindow* const window = Windows.Find("frmChanges");
  if (window != nullptr) static_cast<frmChanges&>(*window).Read();
}

/// The site's browser window may be closed after the main window. Then the program ends.
void Form1::frmWebsite_Unload() {
  if (endsWithWebsite_ && OnEnd) OnEnd();
}

}  // namespace requite
