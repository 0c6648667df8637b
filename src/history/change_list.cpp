// SPDX-License-Identifier: MIT
// Chooses the two records of each site that are compared, and what of it is told.
#include "history/change_list.h"

#include <algorithm>
#include <tuple>

#include "history/acknowledge.h"
#include "history/record_store.h"
#include "history/row_match.h"
#include "platform/runtime_failure.h"

namespace requite {
namespace {

/// The scan to compare with, if there is an older one.
std::optional<std::int64_t> BaseOf(const std::vector<ScanRecord>& scans, const ChangesWanted& wanted) {
  if (wanted.SinceScan) {
    const bool known = std::any_of(scans.begin(), scans.end(),
                                   [&](const ScanRecord& scan) { return scan.Id == *wanted.SinceScan; });
    if (known) return wanted.SinceScan;
    throw RuntimeFailure(static_cast<int>(Failure::InvalidArgument),
                         "no scan " + std::to_string(*wanted.SinceScan) + " of this project is kept");
  }
  if (wanted.SinceDate.empty()) {
    return scans.size() > 1 ? std::optional(scans[scans.size() - 2].Id) : std::nullopt;
  }
  const auto after = std::find_if(scans.begin(), scans.end(),
                                  [&](const ScanRecord& scan) { return scan.Finished >= wanted.SinceDate; });
  return after == scans.begin() ? scans.front().Id : std::prev(after)->Id;
}

class ChangeReader {
 public:
  ChangeReader(HistoryFile& history, const std::string& project, const ChangesWanted& wanted,
               ChangeList& list)
      : reader_(history),
        marks_(AcknowledgedSites(history, project)),
        wanted_(wanted),
        list_(list),
        newestScan_(list.Scan->Id) {
    if (HasSince()) reader_.Prepare(*list.ComparedWith);
  }

  void Take(SiteRecord site, bool inProject) {
    if (!inProject) return TakeRemoved(std::move(site));
    reader_.ReadLinks(site);
    const bool inRange = IsInRange(site);
    SiteChange change;
    change.Before = inRange ? Base(site) : site;
    change.Kind = ChangeBetween(change.Before, site);
    change.Site = std::move(site);
    const auto mark = marks_.find(change.Site.Row);
    if (mark != marks_.end() && mark->second.HoldsFor(change.Site)) {
      change.Acknowledged = true;
      change.Why = mark->second.Why;
    }
    // The first scan of a project changes nothing: there is nothing to compare it with.
    const bool isNews =
        inRange && list_.ComparedWith && change.Kind != ChangeKind::Same && !change.Acknowledged;
    change.News = isNews;
    if (isNews) list_.Counts.Count(change.Kind);
    if (isNews || wanted_.All) list_.Changes.push_back(std::move(change));
  }

 private:
  [[nodiscard]] bool HasSince() const { return wanted_.SinceScan || !wanted_.SinceDate.empty(); }
  [[nodiscard]] bool IsInRange(const SiteRecord& site) const {
    return HasSince() ? site.Place.Scan > *list_.ComparedWith : site.Place.Scan == newestScan_;
  }

  /// The record to compare with.
  std::optional<SiteRecord> Base(const SiteRecord& site) {
    if (HasSince()) return reader_.UpTo(site, *list_.ComparedWith);
    return site.Previous ? reader_.UpTo(site, site.Previous->Scan) : std::nullopt;
  }

  void TakeRemoved(SiteRecord site) {
    if (site.Place.Scan < list_.ComparedWith.value_or(newestScan_)) return;
    reader_.ReadLinks(site);
    list_.Counts.Count(ChangeKind::Removed);
    SiteChange change{ChangeKind::Removed, site, site, false, {}, true};
    list_.Changes.push_back(std::move(change));
  }

  RecordReader reader_;
  std::map<std::int64_t, Acknowledged> marks_;
  const ChangesWanted& wanted_;
  ChangeList& list_;
  std::int64_t newestScan_;
};

}  // namespace

ChangeList ReadChanges(HistoryFile& history, const std::string& project,
                       const std::vector<ProjectSite>& sites, const ChangesWanted& wanted) {
  ChangeList list;
  const SqliteTransaction oneMoment(history.Store(), SqliteStore::Open::ToRead);
  const std::vector<ScanRecord> scans = history.Scans(project);
  if (scans.empty()) return list;
  list.Scan = scans.back();
  list.ComparedWith = BaseOf(scans, wanted);
  std::vector<SiteRecord> newest = NewestRecords(history, project);
  std::vector<bool> inProject(newest.size());
  for (const std::optional<std::size_t>& match : MatchRows(sites, newest)) {
    if (match) inProject[*match] = true;
  }
  ChangeReader reader(history, project, wanted, list);
  for (std::size_t i = 0; i < newest.size(); ++i) reader.Take(std::move(newest[i]), inProject[i]);
  std::stable_sort(list.Changes.begin(), list.Changes.end(), [](const SiteChange& a, const SiteChange& b) {
    return std::tie(a.Kind, a.Site.Main, a.Site.Place.Position) <
           std::tie(b.Kind, b.Site.Main, b.Site.Place.Position);
  });
  return list;
}

std::vector<ProjectSite> SitesOf(const Project& project) {
  std::vector<ProjectSite> sites;
  for (std::size_t main = 0; main < project.List4.RowCount(); ++main) {
    const int number = static_cast<int>(main) + 1;
    if (number > project.ListCount()) break;
    const LinkingSiteList& list = project.List1(number);
    for (std::size_t row = 0; row < list.RowCount(); ++row) {
      sites.push_back(SiteOf(project.List4.At(main).Text, list.At(row).WebsiteUrl));
    }
  }
  return sites;
}

}  // namespace requite
