// SPDX-License-Identifier: MIT
// Runs the export at the press of its button.
#include "shell/harvest_windows/frm_export.h"

namespace requite {

frmExport::frmExport(Windows& windows, RecordList<LinkResult>& list3, modDatabase& database, Dialogs& dialogs,
                     const ProgramFolder& folder)
    : ProgramWindow(windows, "frmExport", "Export Emails"),
      export_({Combo1, Check1, Check2, list3, database, dialogs, folder, [this] { Close(); }}) {
  Command1.OnClick = [this] {
    const Running running(*this);
    export_.Command1();
  };
  Controls.AddLabel(Label1);
  for (Control* each : std::initializer_list<Control*>{&Combo1, &Check2, &Check1, &Command1}) {
    Controls.Add(*each);
  }
}

}  // namespace requite
