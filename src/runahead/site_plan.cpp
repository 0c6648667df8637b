// SPDX-License-Identifier: MIT
// The plain order of rows and Main Sites.
#include "runahead/site_plan.h"

#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr int kMostRowsAtOnce = 4096;

}  // namespace

/// Moves to the next Main Site after the last row. False when the scan ends there or stands still.
bool SitePlan::FindRow() {
  const auto mainSites = static_cast<std::int64_t>(project_.List4.RowCount());
  if (at_.MainSiteNumber > mainSites || at_.MainSiteNumber > project_.ListCount()) return false;
  if (at_.Row <= static_cast<std::int64_t>(project_.List1(at_.MainSiteNumber).RowCount())) return true;
  if (scan_.ScanType != ScanType::AllMainSites || at_.MainSiteNumber >= mainSites) return false;
  if (project_.List1(at_.MainSiteNumber + 1).Empty()) return false;
  at_ = {at_.MainSiteNumber + 1, 1};
  return true;
}

std::optional<PlannedSite> SitePlan::TakeNext() {
  hasMore_ = false;
  if (scan_.ScanType == ScanType::SelectedLinkingSite) return std::nullopt;
  std::optional<PlannedSite> next;
  PassOver([&] {
    const bool endsWithLinks = settings_.IsOne(setting::chkAuto2);
    for (int rows = 0; FindRow(); at_ = at_.Next()) {
      if (++rows > kMostRowsAtOnce) {
        hasMore_ = true;
        return;
      }
      const LinkingSite& site = project_.List1(at_.MainSiteNumber).At(static_cast<std::size_t>(at_.Row) - 1);
      const std::int16_t expected = ReadInt16(site.LinksExpected);
      if (endsWithLinks && expected <= 0) continue;  // closed without a page
      const auto mainSite = static_cast<std::size_t>(at_.MainSiteNumber) - 1;
      next = {at_, project_.List4.At(mainSite).Text, site.WebsiteUrl, expected};
      at_ = at_.Next();
      return;
    }
  });
  return next;
}

}  // namespace requite
