// SPDX-License-Identifier: MIT
// Which sites a scan will come to.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "model/project.h"
#include "model/settings.h"
#include "scan/scan_state.h"

namespace requite {

/// A place in the lists of a project.
struct SitePlace {
  int MainSiteNumber = 1;  ///< 1-based
  std::int32_t Row = 1;    ///< 1-based row of List1(MainSiteNumber)

  bool operator==(const SitePlace&) const = default;
  [[nodiscard]] bool IsBefore(const SitePlace& other) const {
    return MainSiteNumber != other.MainSiteNumber ? MainSiteNumber < other.MainSiteNumber : Row < other.Row;
  }
  [[nodiscard]] SitePlace Next() const { return {MainSiteNumber, Row + 1}; }
};

struct PlannedSite {
  SitePlace Place;
  std::string MainSite;     ///< as typed
  std::string LinkingSite;  ///< the Website URL, as typed
  std::int16_t LinksExpected = 0;

  /// Two rows with the same texts ask for the same pages.
  [[nodiscard]] bool HasTexts(std::string_view mainSite, std::string_view linkingSite) const {
    return MainSite == mainSite && LinkingSite == linkingSite;
  }
};

/// Walks over the rows that a scan will come to unless the user skips, stops or edits.
class SitePlan {
 public:
  SitePlan(const Project& project, const ScanState& scan, const Settings& settings)
      : project_(project), scan_(scan), settings_(settings) {}

  [[nodiscard]] SitePlace At() const { return at_; }
  void GoTo(SitePlace place) { at_ = place; }

  /// The next site whose pages will be read, and the walk is past it. Nothing at the end, where the scan will
  /// stand still, and after a few thousand rows without such a site: the next call continues there.
  [[nodiscard]] std::optional<PlannedSite> TakeNext();
  /// Whether the last call gave nothing only because it had walked far enough.
  [[nodiscard]] bool HasMore() const { return hasMore_; }

 private:
  [[nodiscard]] bool FindRow();

  const Project& project_;
  const ScanState& scan_;
  Settings settings_;
  SitePlace at_;
  bool hasMore_ = false;
};

}  // namespace requite
