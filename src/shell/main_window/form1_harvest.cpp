// SPDX-License-Identifier: MIT
// The commands of the harvesters. Their buttons are never shown; each keeps its action.
#include "shell/harvest_windows/form3.h"
#include "shell/harvest_windows/frm_export.h"
#include "shell/main_window/form1.h"

namespace requite {

void Form1::WireHarvest() {
  Windows.Register("Form3", [this] {
    return std::make_unique<Form3>(
        Windows,
        Form3Needs{txtSearch, Combo1, Combo2, StatusBar1, Sites, Database, Platform, Folder,
                   [this](Counted kind) { UpdateStats(kind); }, [this] { Scan.cmdDoSearch_Click(); }});
  });
  Windows.Register("frmExport", [this] {
    return std::make_unique<frmExport>(Windows, Sites.List3, Database, Platform.Dialogs, Folder);
  });
  cmdResume.OnClick = [this] {
    cmdResume.SetEnabled(false);
    Scan.cmdDoSearch_Click();
  };
  cmdViewDatabase.OnClick = [this] { Platform.Shell.OpenFolder(Folder.Path); };
  Command2.OnClick = [this] { Windows.Show("frmExport"); };
  Command3.OnClick = [this] { Command3_Click(); };
  cmdResume.SetEnabled(false);
  cmdResume.ToolTip = "Resume harvesting emails";
  cmdViewDatabase.ToolTip = "Spider.mdb stores all the emails you have found";
  Command2.ToolTip = "Export all the emails you have found";
  Command3.ToolTip = "Delete all saved emails";
}

void Form1::Command3_Click() {
  const MessageBox question{"Are you sure you want to delete all emails from the database?", "Confirm",
                            Buttons::OkCancel, BoxIcon::None};
  if (Platform.Dialogs.Show(question) != Answer::Ok) return;
  Database.DeleteAllEmails();
  Sites.List3.Clear();
}

}  // namespace requite
