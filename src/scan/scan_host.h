// SPDX-License-Identifier: MIT
// What a scan asks of the parts above it, and what it tells them.
#pragma once

#include "model/scan_kinds.h"
#include "scan/site_verdict.h"

namespace requite {

class ScanHost : public SiteEvents {
 public:
  /// Selects a row of List4, counted from 0, and does what a selection by the user does.
  virtual void SelectMainSite(int row) = 0;
  /// Raises a counter and shows it.
  virtual void UpdateStats(Counted kind) = 0;
  /// Sets the counters of one scan to 0 without showing them.
  virtual void ResetPageCounters() = 0;  ///< PagesScanned, PagesFound, LinksFound
  virtual void ResetSiteCounters() = 0;  ///< MainSitesScanned, LinkingSitesScanned
  virtual void GenerateLinkReport() = 0;
  /// Tells the user, without waiting for an answer, that the work files of a page could not be written.
  /// Called at most once per scan. The scan itself does not need the files.
  virtual void TellWorkFilesUnwritten() = 0;
  /// Tells the user, likewise, that no certificate can be checked. Called at most once per scan, and only
  /// when secure connections are on.
  virtual void TellAuthoritiesMissing() {}
  /// A scan is started: the results of the last one are gone, even if a check then refuses the start.
  virtual void ScanBegins() {}
  /// The scan was stopped or has come to its end, and its report is written. Lets no events run.
  virtual void ScanEnds() {}
};

}  // namespace requite
