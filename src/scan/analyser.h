// SPDX-License-Identifier: MIT
// Where a page turns into links: each href is cut, resolved, tested, queued or recorded.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "scan/link_filter.h"
#include "scan/page_lines.h"
#include "scan/resolve.h"
#include "scan/rules.h"
#include "scan/scan_context.h"
#include "scan/seen_url.h"

namespace requite {

class Analyser {
 public:
  /// The steps that follow: one of them.
  class Next {
   public:
    virtual ~Next() = default;
    virtual void ProcessPage(std::string body) = 0;
    virtual void NextSite() = 0;
    virtual void ScanNextPage() = 0;
  };

  Analyser(ScanContext& scan, Next& next);

  /// Reads the page that triage has prepared on a connection and hands back to the scan controller. A page
  /// that says that it has moved is read again once. A failure ends the step, and the caller passes over it.
  void AnalysePage();

 private:
  enum class PageEnd { Read, Moved };
  enum class Road { NextLine, Record };

  [[nodiscard]] PageEnd ReadLines(PageLines& lines);
  void AnalyseLink(std::string_view line, std::string& link);
  /// Resolves, tests and queues a link. It then holds what a record is judged by.
  [[nodiscard]] Road TakeLink(std::string& link);
  [[nodiscard]] bool GoesOn(std::string_view link) const;
  [[nodiscard]] Road RoadOfRefused(std::string_view link);
  void QueuePage(const std::string& url);
  void RecordIfOurs(std::string& link);
  void FollowMove(PageLines& lines);
  void HandBack();

  ScanContext& scan_;
  Next& next_;
  SiteTests sites_;
  Rules rules_;
  RecordedPages recorded_;
  LinkFilter filter_;
};

}  // namespace requite
