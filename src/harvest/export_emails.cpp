// SPDX-License-Identifier: MIT
// The order counts: with Check1 the table is emptied before the file is written, and before the question
// that the user may answer with No.
#include "harvest/export_emails.h"

#include <string>

#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::string_view kDefaultName = "export.txt";

}  // namespace

void EmailExport::Command1() {
  const std::string file = AskFileName();
  const std::string_view delimiter = Delimiter();
  std::string output;
  PassOver([&] {
    window_.Database.ForEachEmail([&](std::string_view email) {
      output += email;
      output += delimiter;
    });
  });
  if (window_.Check1.Value() == 1) window_.Database.DeleteAllEmails();
  PassOver([&] {
    if (FileExists(file)) DeleteFile(file);
  });
  PassOver([&] { AppendToFile(file, output + std::string(kLineEnd)); });
  if (window_.Check1.Value() == 1) AskAndDelete();
  window_.Unload();
}

/// A cancelled dialog counts as one that took the name it offered.
std::string EmailExport::AskFileName() {
  const std::string chosen =
      window_.Dialogs.AskSaveName({window_.Folder.Path, "", std::string(kDefaultName)});
  return chosen.empty() ? window_.Folder.File(kDefaultName) : chosen;
}

std::string_view EmailExport::Delimiter() const {
  switch (window_.Combo1.ListIndex()) {
    case 1: return "\t";
    case 2: return kLineEnd;
    default: return window_.Check2.Value() == 1 ? "; " : ";";
  }
}

void EmailExport::AskAndDelete() {
  const MessageBox question{"Are you sure you want to delete all emails?", {}, Buttons::YesNo, BoxIcon::None};
  if (window_.Dialogs.Show(question) != Answer::Yes) return;
  window_.Database.DeleteAllEmails();
  window_.List3.Clear();
}

}  // namespace requite
