// SPDX-License-Identifier: MIT
// The two buttons of the Reports tab that save the results as files.
#pragma once

#include <functional>
#include <string>

#include "model/record_list.h"
#include "model/records.h"
#include "platform/services.h"
#include "platform/work_folder.h"

namespace requite {

/// The whole text of a tab-delimited file: the captions, an empty line, one line for each result in the
/// order of the view, and one more line end. Nothing is quoted: a tab inside a field shifts the rest of
/// its line.
[[nodiscard]] std::string TabDelimitedText(const RecordList<LinkResult>& list3);

class SavedFiles {
 public:
  SavedFiles(const RecordList<LinkResult>& list3, const WorkFolder& work, Dialogs& dialogs)
      : list3_(list3), work_(work), dialogs_(dialogs) {}

  /// "Save Report As": copies the last report. The user is not told when the copy fails.
  void Command8();
  /// "Save Tab Delimited": writes TabDelimitedText. A failure is shown in a message box.
  void Command8a();
  /// Receives the path of a file that was to be saved, and whether it is there. May be null.
  std::function<void(const std::string& path, bool written)> OnSaved;

 private:
  void SaveReportAs();
  void SaveTabDelimited();
  [[nodiscard]] bool MayReplace(const std::string& name);

  const RecordList<LinkResult>& list3_;
  const WorkFolder& work_;
  Dialogs& dialogs_;
};

}  // namespace requite
