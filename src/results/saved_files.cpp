// SPDX-License-Identifier: MIT
// Saves the report and the result list under a name that the user chooses.
#include "results/saved_files.h"

#include <utility>

#include "platform/failure_box.h"
#include "platform/text.h"
#include "platform/whole_file.h"
#include "results/report.h"

namespace requite {
namespace {

/// Runs a button's action; a failure ends it in a message.
template <class Action>
void TellFailure(Dialogs& dialogs, Action&& action) {
  EndInBox(dialogs, std::forward<Action>(action), [](const RuntimeFailure& failure) -> MessageBox {
    return {"Error: " + std::to_string(failure.Number) + " - " + failure.Description};
  });
}

/// Adds the extension unless the name holds it anywhere: "a.htm.old" is left alone.
void AddExtension(std::string& name, std::string_view extension) {
  if (!Contains(name, extension, Compare::Text)) name += extension;
}

}  // namespace

std::string TabDelimitedText(const RecordList<LinkResult>& list3) {
  std::string text;
  for (std::size_t column = 0; column < list3.ColumnCount(); ++column) {
    if (column > 0) text += '\t';
    text += list3.Caption(column);
  }
  text += kLineEnd;
  text += kLineEnd;
  for (std::size_t row = 0; row < list3.RowCount(); ++row) {
    const LinkResult& result = list3.At(row);
    for (const std::string* field : {&result.Main, &result.Linking, &result.Status, &result.No}) {
      text += *field;
      text += '\t';
    }
    text += result.LinkUrl;
    text += kLineEnd;
  }
  text += kLineEnd;
  return text;
}

void SavedFiles::Command8() {
  TellFailure(dialogs_, [this] { SaveReportAs(); });
}

void SavedFiles::Command8a() {
  TellFailure(dialogs_, [this] { SaveTabDelimited(); });
}

// Both ask about an existing file before they add the extension. So for a name typed without it, Save
// Report As replaces an old report without asking, and Save Tab Delimited appends to an old list.

void SavedFiles::SaveReportAs() {
  std::string name = dialogs_.AskSaveName({"", "HTML Files (*.htm, *.html)|*.htm,*.html", ""});
  if (IsEmptyOrBlank(name) || !MayReplace(name)) return;
  AddExtension(name, ".htm");
  const bool hasReport = FileExists(work_.File(kReportFile));
  xcopyFile(work_.File(kReportFile), name);
  if (OnSaved) OnSaved(name, hasReport && FileExists(name));
}

void SavedFiles::SaveTabDelimited() {
  std::string name = dialogs_.AskSaveName({"", "TAB Files (*.tab)|*.tab", ""});
  if (IsEmptyOrBlank(name) || !MayReplace(name)) return;
  AddExtension(name, ".tab");
  AppendToFile(name, TabDelimitedText(list3_));
  if (OnSaved) OnSaved(name, true);
}

/// Deletes an existing file when the user agrees. Returns false when the caller has to stop.
bool SavedFiles::MayReplace(const std::string& name) {
  if (!xfileExists(name)) return true;
  const Answer answer = dialogs_.Show({"File already exists.  Are you sure you want to overwrite it?", "",
                                       Buttons::OkCancel, BoxIcon::Question});
  if (answer != Answer::Ok) return false;
  DeleteFile(name);
  return true;
}

}  // namespace requite
