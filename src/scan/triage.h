// SPDX-License-Identifier: MIT
// What a finished response says as a whole, and the preparation of its text for the analyser.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/text_search.h"
#include "scan/scan_context.h"
#include "scan/slices.h"
#include "scan/work_file_writer.h"

namespace requite {

class Triage {
 public:
  /// The step that follows.
  class Next {
   public:
    virtual ~Next() = default;
    virtual void AnalysePage() = 0;
  };

  Triage(ScanContext& scan, Next& next) : scan_(scan), next_(next), workFiles_(scan) {}

  /// Notes an error status of the header block as the site's reason word and as a row of `lstErr`.
  /// `url` is host and path of the page.
  void CheckHttpStatus(const std::string& header, const std::string& url);

  /// Searches the text of a page for signs, puts each href at the start of a line, writes both work files and
  /// calls AnalysePage. Failures are ignored; when the work files cannot be written, the user is told once
  /// per scan. Lets events run between the slices of a large page.
  void ProcessPage(std::string body);

 private:
  /// What the text of a page shows.
  struct Signs {
    bool MainSite = false;
    bool Protected = false;
    bool UnrunScript = false;
  };

  [[nodiscard]] Signs LookThrough(std::string_view body);
  [[nodiscard]] bool HoldsMainSite(std::string_view body, const Slices& slices);
  void NoteReasons(const Signs& signs);
  void PrepareText(std::string body);
  void WriteWorkFiles(const WorkFileWriter::Text& text);

  ScanContext& scan_;
  Next& next_;
  WorkFileWriter workFiles_;
  TextFinder mainSite_{""};
  TextFinder protected_{"You are seeing this text because"};
};

/// The text with each "href=", in any letter case, in lower case on a line of its own, and without the blanks
/// after it. Of more than 36 blanks the rest stays. Nothing after a stop.
[[nodiscard]] std::optional<std::string> PutHrefsOnLines(std::string_view body, const Slices& slices);

}  // namespace requite
