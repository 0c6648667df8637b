// SPDX-License-Identifier: MIT
// The Page Builder turns the results into the HTML of a link page and saves it.
#pragma once

#include <functional>
#include <string>

#include "model/project.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "platform/services.h"

namespace requite {

/// The controls of the "Pages" tab that are not part of the project.
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

  /// Replaces the second text, edited or not, by an entry for each result row with a link. Without result
  /// rows it only says so. Runs no events.
  void GenerateLinks();

  /// Asks for a name and writes WebPage there, replacing a file of that name without a question. Throws
  /// RuntimeFailure for what the file system refuses.
  void SaveWebpage();
  /// Receives the path of a page that was saved. May be null.
  std::function<void(const std::string& path)> OnSaved;

  /// The three texts with an empty line between them, and a line end after the last.
  [[nodiscard]] std::string WebPage() const;

 private:
  [[nodiscard]] std::string Links() const;

  Project& project_;
  PageOptions options_;
  const ProgramFolder& folder_;
  Dialogs& dialogs_;
};

}  // namespace requite
