// SPDX-License-Identifier: MIT
// Counts, and shows the counters.
#include "results/statistics.h"

#include <limits>
#include <string>

#include "platform/runtime_failure.h"

namespace requite {
namespace {

void Increment(std::int32_t& counter) {
  if (counter == std::numeric_limits<std::int32_t>::max()) throw RuntimeFailure(Failure::Overflow);
  ++counter;
}

}  // namespace

void Statistics::ReadHistory() {
  HistoryLinksFound = settings_.LongNumber(setting::lHistEmailFound);
  HistoryPagesScanned = settings_.LongNumber(setting::lHistWebScanned);
}

void Statistics::UpdateStats(Counted kind) {
  Raise(kind);
  RefreshStats();
}

void Statistics::Raise(Counted kind) {
  switch (kind) {
    case Counted::PageScanned:
      Increment(PagesScanned);
      Increment(HistoryPagesScanned);
      settings_.SaveSettingSoon(setting::lHistWebScanned, HistoryPagesScanned);
      break;
    case Counted::PageFound: Increment(PagesFound); break;
    case Counted::LinkFound:
      Increment(LinksFound);
      Increment(HistoryLinksFound);
      settings_.SaveSettingSoon(setting::lHistEmailFound, HistoryLinksFound);
      break;
    case Counted::MainSite: Increment(MainSitesScanned); break;
    case Counted::LinkingSite: Increment(LinkingSitesScanned); break;
  }
}

void Statistics::RefreshStats() {
  const std::int32_t figures[kLabels] = {PagesScanned,        PagesFound,        LinksFound,
                                         HistoryPagesScanned, HistoryLinksFound, LinkingSitesScanned,
                                         MainSitesScanned};
  for (std::size_t i = 0; i < kLabels; ++i) lblStats_[i].SetText(std::to_string(figures[i]));
}

void Statistics::ResetPageCounters() { PagesScanned = PagesFound = LinksFound = 0; }

void Statistics::ResetSiteCounters() { MainSitesScanned = LinkingSitesScanned = 0; }

}  // namespace requite
