// SPDX-License-Identifier: MIT
// The names under which the main window's controls are found.
#include "shell/main_window/form1.h"

namespace requite {

void Form1::BuildIndex() {
  Control* const plain[] = {&Main,           &Command1,       &Command10,
                            &cmdSkip,        &cmdStop,        &Command9,
                            &cmdOpen,        &cmdSave,        &cmdNew,
                            &cmdWebsite,     &Frame1,         &innerFrame1,
                            &txtDomain,      &cmdAdd2,        &cmdDelete,
                            &cmdEditMain,    &cmdImport2,     &innerFrame2,
                            &Label2,         &lblblah,        &Text1,
                            &cmdAdd,         &cmbDel,         &cmdEdit,
                            &cmdImport,      &Frame6,         &pb1,
                            &StatusBar1,     &Frame2,         &TabStrip1,
                            &lblErr,         &WebBrowser1,    &cmdBack,
                            &cmdForward,     &cmdWebStop,     &cmdRefresh,
                            &cmdGo,          &txtURL,         &Frame5,
                            &Label11,        &Label12,        &Label10,
                            &Label13,        &Combo3,         &chkNewWin,
                            &chkBullet,      &Command5,       &Command6,
                            &WebBrowser2,    &Command8,       &Command8a,
                            &framePost,      &SkinLabel9,     &cmbSites,
                            &txtPost2,       &cmdScriptAdd,   &cmdScriptDel,
                            &cmdPost,        &cmdVariables,   &cmdExample,
                            &cmdDoSearch,    &cmdResume,      &cmdViewDatabase,
                            &Command2,       &Command3,       &txtSearch,
                            &Combo1,         &Combo2,         &Label1_2,
                            &Label1_4,       &cmdNextSearch,  &Command11,
                            &Command7,       &Command12,      &Command4,
                            &Frame3,         &Frame4,         &Label8,
                            &cmbLastSearch,  &Sites.List4,    &Sites.List3,
                            &Sites.lstRules, &Sites.lstMulti, &Sites.txtHTML1,
                            &Sites.txtHTML2, &Sites.txtHTML3, &Sites.txtPost,
                            &Lists.List2,    &Lists.lstErr};
  for (Control* each : plain) Controls.Add(*each);
  for (TextBox& label : lblStats) Controls.AddLabel(label);
  Controls.Add(optAll);
  Controls.Add(optScript);
  Controls.Add(mnuFile, "mnuFile");
  Controls.Add(mnuScan, "mnuScanItem");
  Controls.Add(mnuHelp, "mnuHelp");
  Controls.Add(mnuAbout, "mnuAbout");
  Controls.Add(mnuView, "mnuViewItem");
  Controls.Add(mnuSkipPopup, "mnuSkipItem");
  Controls.Add(Popup1, "mnuPopup1Item");
  Controls.Add(Popup2, "mnuPopup2Item");
  // The Linking Site lists come and go with the Main Sites; without a number it is the one on show.
  Controls.SetDynamic([this](std::string_view name) -> Control* {
    for (int k = 0; k <= Sites.ListCount(); ++k) {
      LinkingSiteList& list = Sites.List1(k);
      if (name == list.Name() || (name == "List1" && list.Visible())) return &list;
    }
    return nullptr;
  });
}

}  // namespace requite
