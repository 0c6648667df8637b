// SPDX-License-Identifier: MIT
// The state that the steps of a scan share. One object, owned by the main window.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/scan_kinds.h"
#include "scan/seen_pages.h"

namespace requite {

/// The current page, as far as its one connection has brought it.
struct PageFetch {
  std::string PageHost;
  std::string PagePath;            ///< starts with "/"
  std::string RecvBuffer;          ///< all bytes received for this page, headers included
  std::int32_t BytesReceived = 0;  ///< body bytes only, once HeaderSeen
  std::int32_t ContentLength = 0;  ///< 0 when the header has none
  bool HeaderSeen = false;
  std::int16_t TimeoutTicks = 0;  ///< seconds since the last data
  std::string PreparedText;       ///< the page with its hrefs on lines, on its way to the analyser
};

struct ScanState {
  bool Scanning = false;  ///< every step tests it first and does nothing when it is false
  requite::ScanType ScanType = requite::ScanType::AllMainSites;
  std::int32_t SiteRow = 0;       ///< 1-based row of the current Linking Site; 0 when no scan runs
  std::string CurrentLinkingUrl;  ///< as typed, and a bare host from the site's first result row on
  std::string MainSiteKey;
  std::int16_t LinksExpected = 0;
  std::int16_t LinksCounted = 0;
  std::int32_t LinksOnSite = 0;
  std::int32_t LinkNumber = 0;
  bool LinkFound = false;
  std::int32_t PagesDone = 0;
  std::int32_t PagesQueued = 0;  ///< also the last used index of SeenPages
  std::int32_t SitesDone = 0;    ///< never raised: panel 1 shows the first Main Site for the whole scan
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
  bool WorkFilesUnwritten = false;  ///< the user was told in this scan that they could not be written
  PageFetch Page;
};

}  // namespace requite
