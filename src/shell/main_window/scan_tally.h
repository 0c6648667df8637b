// SPDX-License-Identifier: MIT
// How far the scan is that runs, and what the last one came to.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "results/site_counts.h"
#include "scan/site_verdict.h"
#include "shell/main_window/time_left.h"

namespace requite {

/// Counts the sites of one scan at a time, from its start until the next one starts.
class ScanTally {
 public:
  using Moment = TimeLeft::Moment;

  void Begin(Moment now);
  void SiteFinished(const SiteVerdict& verdict) { counts_.Add(verdict.LinksBack, verdict.Reached); }
  /// The user ends the scan.
  void Stop() { stopped_ = true; }

  [[nodiscard]] const SiteCounts& Counts() const { return counts_; }

  /// "Site 5 of 12". The number is that of the site in progress.
  [[nodiscard]] std::string Position(std::int32_t all) const;
  /// "Site 5 of 12", "2 link back", and the time that is left once it can be told. `ahead` is the number of
  /// sites that are read but not finished.
  [[nodiscard]] std::vector<std::string> Progress(std::int32_t all, std::int32_t ahead, Moment now);
  /// "12 sites: 2 link back, 7 do not, 3 not reached", after "Stopped." if the user ended the scan.
  [[nodiscard]] std::string Result(std::int32_t all) const;

 private:
  SiteCounts counts_;
  TimeLeft left_;
  bool stopped_ = false;
};

}  // namespace requite
