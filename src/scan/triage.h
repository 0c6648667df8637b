// SPDX-License-Identifier: MIT
// What a finished response says as a whole, and the preparation of its text for the analyser.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "scan/page_body.h"
#include "scan/page_marks.h"
#include "scan/scan_context.h"
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
  void ProcessPage(PageBody body);

 private:
  [[nodiscard]] std::optional<PreparedPage> LookThrough(std::string_view body);
  [[nodiscard]] bool HoldsMainSite(std::string_view body, const std::string& sought,
                                   const PreparedPage& page);
  void NoteReasons(const PreparedPage& page);
  void HandOn(PreparedPage page);
  void WriteWorkFiles(const WorkFileWriter::Text& text);

  ScanContext& scan_;
  Next& next_;
  WorkFileWriter workFiles_;
  std::shared_ptr<const PageMarks> marks_ = std::make_shared<const PageMarks>("");
};

}  // namespace requite
