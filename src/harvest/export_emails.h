// SPDX-License-Identifier: MIT
// Writes all stored addresses into one text file.
#pragma once

#include <functional>

#include "harvest/mod_database.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "platform/services.h"

namespace requite {

/// What the export works with. All of it must outlive the export.
struct EmailExportNeeds {
  const ComboBox& Combo1;
  const CheckBox& Check1;
  const CheckBox& Check2;
  RecordList<LinkResult>& List3;
  modDatabase& Database;
  requite::Dialogs& Dialogs;
  const ProgramFolder& Folder;
  std::function<void()> Unload;  ///< closes the window
};

class EmailExport {
 public:
  explicit EmailExport(EmailExportNeeds needs) : window_(std::move(needs)) {}

  /// Asks for the file, writes it, empties the table if the check box says so, and closes the window.
  /// Failures are passed over: without a database the file holds one line end.
  void Command1();

 private:
  [[nodiscard]] std::string AskFileName();
  [[nodiscard]] std::string_view Delimiter() const;
  void AskAndDelete();

  EmailExportNeeds window_;
};

}  // namespace requite
