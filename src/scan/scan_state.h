// SPDX-License-Identifier: MIT
// The state that the steps of a scan share.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "model/scan_kinds.h"
#include "scan/seen_pages.h"
#include "scan/site_answers.h"

namespace requite {

/// What has been received of the current page.
struct PageFetch {
  std::string PageHost;
  std::string PagePath;            ///< starts with "/"
  std::string RecvBuffer;          ///< all bytes received for this page, headers included
  std::int32_t BytesReceived = 0;  ///< once HeaderSeen is set, bytes of the body only
  std::int32_t ContentLength = 0;  ///< 0 when the header does not say it
  bool HeaderSeen = false;
  std::int16_t TimeoutTicks = 0;  ///< seconds since the last data
  /// The page with each href on its own line; triage hands it to the analyser. Null: an empty page.
  std::shared_ptr<const std::string> PreparedText;
  bool MayHaveMoved = true;  ///< whether a line of PreparedText may say that the page has moved
};

/// One object, owned by the main window.
struct ScanState {
  /// SeenPages keeps its entries; only the count of its used slots is set to 0.
  void ForgetQueuedPages() {
    PagesQueued = 0;
    ++Sites;
  }

  bool Scanning = false;  ///< every step tests it first, and does nothing when it is false
  requite::ScanType ScanType = requite::ScanType::AllMainSites;
  std::int32_t OnlyRow = 0;       ///< the 1-based row of a scan of one site that the user chose; else 0
  std::int32_t SiteRow = 0;       ///< 1-based row of the current Linking Site; 0 when no scan runs
  std::string CurrentLinkingUrl;  ///< as typed; its bare host from the first result row on
  std::string MainSiteKey;
  std::int16_t LinksExpected = 0;
  std::int16_t LinksCounted = 0;
  std::int32_t LinksOnSite = 0;
  std::int32_t LinkNumber = 0;
  bool LinkFound = false;
  std::int32_t PagesDone = 0;
  std::int32_t PagesQueued = 0;  ///< also the last used index of SeenPages
  std::uint64_t Sites = 0;       ///< rises whenever PagesQueued is set back to 0
  std::int32_t SitesDone = 0;    ///< always 0: panel 1 says "Main Site 1" during the whole scan
  std::int32_t PageLimit = 0;
  std::int16_t TimeoutSeconds = 0;
  std::string ReasonNote;
  std::string RedirectPage;
  bool RedirectSuspected = false;
  bool SkipRequested = false;
  bool RedirectFollowed = false;
  std::string PageUrl;
  std::string PageFull;
  std::string PageDir;
  std::vector<std::string> FileTypes;
  requite::SeenPages SeenPages;
  std::int32_t AutoSaveTicks = 0;
  bool WorkFilesBegun = false;      ///< a page of this scan was written
  bool WorkFilesUnwritten = false;  ///< the user has been told in this scan
  bool AuthoritiesMissing = false;  ///< likewise
  SiteAnswers Answers;
  std::set<std::string> FaultyHosts;  ///< hosts whose certificate fault has its row, in lower case
  PageFetch Page;
};

}  // namespace requite
