// SPDX-License-Identifier: MIT
// The statements that write a scan.
#include "history/store_scan.h"

#include "history/record_store.h"
#include "history/row_match.h"

namespace requite {
namespace {

constexpr const char* kPrune =
    "DELETE FROM scan WHERE project = ?1 AND finished < strftime('%Y-%m-%dT%H:%M:%SZ', ?2, '-400 days') "
    "AND id NOT IN (SELECT id FROM scan WHERE project = ?1 ORDER BY id DESC LIMIT 100)";

/// The number of a site that is recorded for the first time. It is never used again, not even after its
/// records are pruned, as the numbers of scans are not: marks of the user are kept by it.
std::int64_t NewRow(const RecordPlace& place) {
  constexpr std::int64_t kMostSites = std::int64_t{1} << 24;
  return place.Scan * kMostSites + place.Position;
}

std::int64_t InsertScan(SqliteStore& store, const ScanRecord& scan) {
  SqliteStatement insert(store,
                         "INSERT INTO scan(project, started, finished, type, complete, sites, pages, links, "
                         "errors) VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?) RETURNING id");
  insert.BindBytes(1, scan.Project);
  insert.Bind(2, scan.Started);
  insert.Bind(3, scan.Finished);
  insert.Bind(4, static_cast<std::int64_t>(scan.Type));
  insert.Bind(5, std::int64_t{scan.Complete});
  insert.Bind(6, scan.Sites);
  insert.Bind(7, scan.Pages);
  insert.Bind(8, scan.Links);
  insert.Bind(9, scan.Errors);
  std::int64_t id = 0;
  while (insert.Next()) id = insert.Number(0);
  return id;
}

class SiteWriter {
 public:
  explicit SiteWriter(SqliteStore& store)
      : site_(store,
              "INSERT INTO site(scan, position, row, main, host, url_before, url_after, expected, found, "
              "state, "
              "reason, since, previous, previous_position, known, linked, newest) "
              "VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 1)"),
        link_(store, "INSERT OR IGNORE INTO link(scan, position, no, kind, page) VALUES(?, ?, ?, ?, ?)"),
        older_(store, "UPDATE site SET newest = 0 WHERE scan = ? AND position = ?") {}

  void Write(const SiteRecord& site) {
    site_.Bind(1, site.Place.Scan);
    site_.Bind(2, site.Place.Position);
    site_.Bind(3, site.Row);
    site_.Bind(4, site.Main);
    site_.Bind(5, site.Host);
    site_.Bind(6, site.UrlBefore);
    site_.Bind(7, site.UrlAfter);
    site_.Bind(8, site.Expected);
    site_.Bind(9, site.Found);
    site_.Bind(10, WordOf(site.State));
    site_.Bind(11, site.Reason);
    site_.Bind(12, site.Since);
    BindPlace(13, site.Previous);
    site_.Bind(15, site.Known);
    site_.Bind(16, std::int64_t{site.Linked});
    site_.Run();
    for (const LinkRecord& link : site.Links) Write(site, link);
  }
  void NoLongerNewest(const SiteRecord& site) {
    older_.Bind(1, site.Place.Scan);
    older_.Bind(2, site.Place.Position);
    older_.Run();
  }

 private:
  void BindPlace(int first, const std::optional<RecordPlace>& place) {
    if (place) {
      site_.Bind(first, place->Scan);
      site_.Bind(first + 1, place->Position);
    } else {
      site_.BindNull(first);
      site_.BindNull(first + 1);
    }
  }
  void Write(const SiteRecord& site, const LinkRecord& link) {
    link_.Bind(1, site.Place.Scan);
    link_.Bind(2, site.Place.Position);
    link_.Bind(3, link.No);
    link_.Bind(4, link.Kind);
    link_.Bind(5, link.Page);
    link_.Run();
  }

  SqliteStatement site_;
  SqliteStatement link_;
  SqliteStatement older_;
};

std::vector<ProjectSite> SitesNow(const std::vector<SiteRecord>& scanned,
                                  const std::vector<ProjectSite>& others) {
  std::vector<ProjectSite> sites;
  sites.reserve(scanned.size() + others.size());
  for (const SiteRecord& each : scanned) sites.push_back(SiteOf(each.Main, each.UrlBefore));
  sites.insert(sites.end(), others.begin(), others.end());
  return sites;
}

std::int64_t Prune(SqliteStore& store, const std::string& project, const std::string& today) {
  SqliteStatement prune(store, kPrune);
  prune.BindBytes(1, project);
  prune.Bind(2, today);
  prune.Run();
  return store.Changes();
}

}  // namespace

void StoreScan(HistoryFile& history, ScanRecord scan, std::vector<SiteRecord> sites,
               const std::vector<ProjectSite>& others) {
  SqliteStore& store = history.Store();
  HistoryWrite write(history);
  const std::vector<SiteRecord> newest = NewestRecords(history, scan.Project);
  const auto matches = MatchRows(SitesNow(sites, others), newest);
  scan.Sites = static_cast<std::int64_t>(sites.size());
  const std::int64_t id = InsertScan(store, scan);
  SiteWriter writer(store);
  for (std::size_t i = 0; i < sites.size(); ++i) {
    const SiteRecord* const before = matches[i] ? &newest[*matches[i]] : nullptr;
    SiteRecord& site = sites[i];
    site.Place = {id, static_cast<std::int64_t>(i + 1)};
    site.Row = NewRow(site.Place);
    Succeed(site, before, scan.Finished);
    if (before != nullptr) writer.NoLongerNewest(*before);
    writer.Write(site);
  }
  Prune(store, scan.Project, scan.Finished);
  write.Commit();
}

std::int64_t PruneScans(HistoryFile& history, const std::string& project, const std::string& today) {
  HistoryWrite write(history);
  const std::int64_t pruned = Prune(history.Store(), project, today);
  write.Commit();
  if (pruned > 0) history.Store().Run("VACUUM");
  return pruned;
}

}  // namespace requite
