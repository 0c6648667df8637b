// SPDX-License-Identifier: MIT
// The window that writes all found e-mail addresses into a file.
#pragma once

#include "harvest/export_emails.h"
#include "shell/label.h"
#include "shell/program_window.h"

namespace requite {

struct frmExport : ProgramWindow {
  /// The list, the database, the dialogs and the folder must outlive the window.
  frmExport(Windows& windows, RecordList<LinkResult>& list3, modDatabase& database, Dialogs& dialogs,
            const ProgramFolder& folder);

  Label Label1{"Label1", "Output Type:"};
  /// Its first text is not one of its items: a small "d" instead of "D" means that nothing was chosen yet.
  ComboBox Combo1{"Combo1",
                  "Semi-Colon delimited (;)",
                  {"Semi-Colon Delimited (;)", "Tab Delimited (^t)", "Line Feed Delimited (one per line)"}};
  CheckBox Check2{"Check2", "Put a space between each entry"};
  CheckBox Check1{"Check1", "Delete all emails when finished"};
  Button Command1{"Command1", "Export"};

 private:
  EmailExport export_;
};

}  // namespace requite
