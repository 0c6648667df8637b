// SPDX-License-Identifier: MIT
// The Page Builder: the results as the HTML of a link page, and the page as a file.
#pragma once

#include <string>

#include "model/project.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "platform/services.h"

namespace requite {

/// The controls of the "Pages" tab that the project does not hold.
struct PageOptions {
  OptionGroup& optAll;
  ComboBox& Combo3;
  CheckBox& chkNewWin;
  CheckBox& chkBullet;
};

class PageBuilder {
 public:
  PageBuilder(Project& project, const PageOptions& options, const ProgramFolder& folder, Dialogs& dialogs)
      : project_(project), options_(options), folder_(folder), dialogs_(dialogs) {}

  /// Replaces the second text by an entry for each result row with a link, whatever was edited there.
  /// Without any result rows it only says so. Runs no events.
  void GenerateLinks();

  /// Writes WebPage under a name that the user is asked for. A file of that name goes without a question.
  /// Throws RuntimeFailure for what the file system refuses.
  void SaveWebpage();

  /// The three texts with an empty line between them, and the line end that closes a file.
  [[nodiscard]] std::string WebPage() const;

 private:
  [[nodiscard]] std::string Links() const;

  Project& project_;
  PageOptions options_;
  const ProgramFolder& folder_;
  Dialogs& dialogs_;
};

}  // namespace requite
