// SPDX-License-Identifier: MIT
// The queries, and the columns that a record is made of.
#include "history/record_store.h"

#include <algorithm>

namespace requite {
namespace {

/// In the order that `Take` reads them.
#define REQUITE_SITE_COLUMNS                                                                             \
  "s.row, s.scan, s.position, s.main, s.host, s.url_before, s.url_after, s.expected, s.found, s.state, " \
  "s.reason, s.since, s.previous, s.previous_position, s.known, s.linked "

/// Left to itself, the planner takes the key of the table and with it every record of all scans.
constexpr const char* kNewest =
    "SELECT " REQUITE_SITE_COLUMNS
    "FROM scan c JOIN site s INDEXED BY site_newest ON s.scan = c.id AND s.newest "
    "WHERE c.project = ? ORDER BY s.row";
constexpr const char* kOne = "SELECT " REQUITE_SITE_COLUMNS "FROM site s WHERE s.scan = ? AND s.position = ?";
constexpr const char* kLinks = "SELECT no, kind, page FROM link WHERE scan = ? AND position = ? ORDER BY no";

SiteRecord Take(const SqliteStatement& row) {
  SiteRecord site;
  site.Row = row.Number(0);
  site.Place.Scan = row.Number(1);
  site.Place.Position = row.Number(2);
  site.Main = row.Text(3);
  site.Host = row.Text(4);
  site.UrlBefore = row.Text(5);
  site.UrlAfter = row.Text(6);
  site.Expected = row.Number(7);
  site.Found = row.Number(8);
  site.State = StateOf(row.Bytes(9));
  site.Reason = row.Text(10);
  site.Since = row.Text(11);
  if (!row.IsNull(12)) site.Previous = RecordPlace{row.Number(12), row.Number(13)};
  site.Known = row.Number(14);
  site.Linked = row.Number(15) != 0;
  return site;
}

}  // namespace

std::vector<SiteRecord> NewestRecords(HistoryFile& history, const std::string& project) {
  std::vector<SiteRecord> records;
  SqliteStatement rows(history.Store(), kNewest);
  rows.BindBytes(1, project);
  while (rows.Next()) records.push_back(Take(rows));
  return records;
}

RecordReader::RecordReader(HistoryFile& history)
    : history_(history), one_(history.Store(), kOne), links_(history.Store(), kLinks) {}

void RecordReader::Prepare(std::int64_t scan) {
  prepared_ = scan;
  positions_.clear();
  SqliteStatement rows(history_.Store(), "SELECT row, position FROM site WHERE scan = ?");
  rows.Bind(1, scan);
  while (rows.Next()) positions_[rows.Number(0)] = rows.Number(1);
}

std::optional<SiteRecord> RecordReader::UpTo(const SiteRecord& newest, std::int64_t scan) {
  const auto known = positions_.find(newest.Row);
  std::optional<SiteRecord> site = newest;
  if (scan == prepared_ && known != positions_.end()) site = At({scan, known->second});
  while (site && site->Place.Scan > scan) {
    std::optional<SiteRecord> before = Before(*site);
    if (!before && site->Previous) break;
    // Every record points to an older scan. Another file from outside must not send this in circles.
    if (before && before->Place.Scan >= site->Place.Scan) before.reset();
    site = std::move(before);
  }
  if (site) ReadLinks(*site);
  return site;
}

std::optional<SiteRecord> RecordReader::Before(const SiteRecord& site) {
  return site.Previous ? At(*site.Previous) : std::nullopt;
}

std::optional<SiteRecord> RecordReader::At(const RecordPlace& place) {
  std::optional<SiteRecord> site;
  one_.Bind(1, place.Scan);
  one_.Bind(2, place.Position);
  while (one_.Next()) site = Take(one_);
  return site;
}

void RecordReader::ReadLinks(SiteRecord& site) {
  site.Links.clear();
  links_.Bind(1, site.Place.Scan);
  links_.Bind(2, site.Place.Position);
  while (links_.Next()) site.Links.push_back({links_.Text(1), links_.Text(0), links_.Text(2)});
}

std::vector<PastResult> LastResults(HistoryFile& history, const SiteRecord& newest, int most) {
  std::vector<PastResult> results;
  RecordReader reader(history);
  SqliteStatement date(history.Store(), "SELECT finished FROM scan WHERE id = ?");
  for (std::optional<SiteRecord> site = newest; site && static_cast<int>(results.size()) < most;
       site = reader.Before(*site)) {
    date.Bind(1, site->Place.Scan);
    std::string finished;
    while (date.Next()) finished = date.Text(0);
    results.push_back({std::move(finished), site->Expected, site->Found, site->State});
  }
  std::reverse(results.begin(), results.end());
  return results;
}

}  // namespace requite
