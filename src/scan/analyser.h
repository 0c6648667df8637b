// SPDX-License-Identifier: MIT
// Finds the links of a page: each href is cut out, resolved and tested, then queued or recorded.
#pragma once

#include <string>
#include <string_view>

#include "scan/link_filter.h"
#include "scan/link_verdicts.h"
#include "scan/page_body.h"
#include "scan/page_lines.h"
#include "scan/resolve.h"
#include "scan/rules.h"
#include "scan/scan_context.h"
#include "scan/seen_url.h"

namespace requite {

class Analyser {
 public:
  /// The steps that may follow.
  class Next {
   public:
    virtual ~Next() = default;
    virtual void ProcessPage(PageBody body) = 0;
    virtual void NextSite() = 0;
    virtual void ScanNextPage() = 0;
    /// Gets the page at an address as HttpGetText does and hands it to TakeMovedPage, at once or later.
    virtual void GetMovedPage(std::string address) = 0;
  };

  Analyser(ScanContext& scan, Next& next);

  /// Reads the page that triage has prepared and continues with one of the next steps. A page that says that
  /// it has moved is fetched from its new address, once. A failure ends the step; the caller ignores it.
  void AnalysePage();
  /// The text of the page that GetMovedPage got, or an empty text.
  void TakeMovedPage(std::string text);

 private:
  enum class PageEnd { Read, Moved };
  /// Whether a link may be recorded. "Now": the next link with the same value may be used otherwise.
  enum class LinkUse { None, NoneNow, Record, RecordNow };
  /// A link on its way, kept from line to line for their memory.
  struct LinkTexts {
    std::string Link;
    std::string Lower;  ///< once it is tested whether it was seen
  };

  void IndexSites();
  [[nodiscard]] PageEnd ReadLines(PageLines& lines, bool mayHaveMoved);
  void AnalyseLine(const PageLines& lines, LinkTexts& texts);
  void AnalyseValue(HashedText value, LinkTexts& texts);
  [[nodiscard]] LinkVerdict AnalyseLink(std::string_view value, LinkTexts& texts);
  /// Resolves, tests and queues a link. It is left in the form that RecordIfOurs tests.
  [[nodiscard]] LinkUse TakeLink(LinkTexts& texts);
  [[nodiscard]] LinkUse QueueIfNew(LinkTexts& texts);
  [[nodiscard]] bool GoesOn(std::string_view link) const;
  void QueuePage(const std::string& url, std::string_view lowerUrl);
  [[nodiscard]] LinkVerdict RecordIfOurs(std::string& link);
  void FollowMove(PageLines& lines);
  void HandBack();

  ScanContext& scan_;
  Next& next_;
  SiteTests sites_;
  Rules rules_;
  RecordedPages recorded_;
  LinkFilter filter_;
  LinkVerdicts verdicts_;
};

}  // namespace requite
