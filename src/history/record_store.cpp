// SPDX-License-Identifier: MIT
// The queries, and the columns that a record is made of.
#include "history/record_store.h"

#include <algorithm>

namespace requite {
namespace {

/// In the order that `Take` reads them.
#define REQUITE_SITE_COLUMNS                                                                             \
  "s.row, s.scan, s.position, s.main, s.host, s.url_before, s.url_after, s.expected, s.found, s.state, " \
  "s.reason, s.since, s.previous, s.known, s.linked "

constexpr const char* kNewest = "SELECT " REQUITE_SITE_COLUMNS
                                "FROM scan c JOIN site s ON s.scan = c.id AND s.newest "
                                "WHERE c.project = ? ORDER BY s.row";
constexpr const char* kUpTo =
    "SELECT " REQUITE_SITE_COLUMNS "FROM site s WHERE s.row = ? AND s.scan <= ? ORDER BY s.scan DESC LIMIT 1";
constexpr const char* kOldest =
    "SELECT " REQUITE_SITE_COLUMNS "FROM site s WHERE s.row = ? ORDER BY s.scan LIMIT 1";
constexpr const char* kLinks =
    "SELECT no, kind, page FROM link WHERE scan = ? AND position = ? ORDER BY rowid";
constexpr const char* kLast =
    "SELECT c.finished, s.expected, s.found, s.state FROM site s JOIN scan c ON c.id = s.scan "
    "WHERE s.row = ? ORDER BY s.scan DESC LIMIT ?";

SiteRecord Take(const SqliteStatement& row) {
  SiteRecord site;
  site.Row = row.Number(0);
  site.Scan = row.Number(1);
  site.Position = row.Number(2);
  site.Main = row.Text(3);
  site.Host = row.Text(4);
  site.UrlBefore = row.Text(5);
  site.UrlAfter = row.Text(6);
  site.Expected = row.Number(7);
  site.Found = row.Number(8);
  site.State = StateOf(row.Bytes(9));
  site.Reason = row.Text(10);
  site.Since = row.Text(11);
  if (!row.IsNull(12)) site.Previous = row.Number(12);
  site.Known = row.Number(13);
  site.Linked = row.Number(14) != 0;
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
    : upTo_(history.Store(), kUpTo), oldest_(history.Store(), kOldest), links_(history.Store(), kLinks) {}

std::optional<SiteRecord> RecordReader::UpTo(std::int64_t row, std::int64_t scan) {
  upTo_.Bind(1, row);
  upTo_.Bind(2, scan);
  return One(upTo_);
}

std::optional<SiteRecord> RecordReader::Oldest(std::int64_t row) {
  oldest_.Bind(1, row);
  return One(oldest_);
}

std::optional<SiteRecord> RecordReader::One(SqliteStatement& query) {
  std::optional<SiteRecord> site;
  while (query.Next()) site = Take(query);
  if (site) ReadLinks(*site);
  return site;
}

void RecordReader::ReadLinks(SiteRecord& site) {
  site.Links.clear();
  links_.Bind(1, site.Scan);
  links_.Bind(2, site.Position);
  while (links_.Next()) site.Links.push_back({links_.Text(1), links_.Text(0), links_.Text(2)});
}

std::vector<PastResult> LastResults(HistoryFile& history, std::int64_t row, int most) {
  std::vector<PastResult> results;
  SqliteStatement rows(history.Store(), kLast);
  rows.Bind(1, row);
  rows.Bind(2, std::int64_t{most});
  while (rows.Next()) {
    results.push_back({rows.Text(0), rows.Number(1), rows.Number(2), StateOf(rows.Bytes(3))});
  }
  std::reverse(results.begin(), results.end());
  return results;
}

}  // namespace requite
