// SPDX-License-Identifier: MIT
// The tables, their version, and the list of scans.
#include "history/history_file.h"

#include "platform/runtime_failure.h"

namespace requite {
namespace {

constexpr std::int64_t kVersion = 1;

/// `site.row` is what a site keeps over all scans, and `newest` marks the newest record of each row: without
/// it, finding these would take a look at every record. Older ones are found from record to record: an index
/// by row would be written all over by each scan. Marks of the user are kept by row, so the pruning of scans
/// does not touch them.
constexpr const char* kTables = R"(
CREATE TABLE scan(
  id INTEGER PRIMARY KEY AUTOINCREMENT, project TEXT NOT NULL, started TEXT NOT NULL, finished TEXT NOT NULL,
  type INTEGER NOT NULL, complete INTEGER NOT NULL, sites INTEGER NOT NULL, pages INTEGER NOT NULL,
  links INTEGER NOT NULL, errors INTEGER NOT NULL);
CREATE TABLE site(
  scan INTEGER NOT NULL REFERENCES scan(id) ON DELETE CASCADE, position INTEGER NOT NULL, row INTEGER NOT NULL,
  main TEXT NOT NULL, host TEXT NOT NULL, url_before TEXT NOT NULL, url_after TEXT NOT NULL,
  expected INTEGER NOT NULL, found INTEGER NOT NULL, state TEXT NOT NULL, reason TEXT NOT NULL,
  since TEXT NOT NULL, previous INTEGER, previous_position INTEGER, known INTEGER NOT NULL, linked INTEGER NOT NULL,
  newest INTEGER NOT NULL, PRIMARY KEY(scan, position)) WITHOUT ROWID;
CREATE TABLE link(
  scan INTEGER NOT NULL, position INTEGER NOT NULL, no TEXT NOT NULL, page TEXT NOT NULL, kind TEXT NOT NULL,
  PRIMARY KEY(scan, position, no, page),
  FOREIGN KEY(scan, position) REFERENCES site(scan, position) ON DELETE CASCADE) WITHOUT ROWID;
CREATE TABLE acknowledged(
  row INTEGER PRIMARY KEY, project TEXT NOT NULL, since TEXT NOT NULL, known INTEGER NOT NULL,
  why TEXT NOT NULL, at TEXT NOT NULL);
CREATE INDEX scan_project ON scan(project, id);
CREATE INDEX site_newest ON site(scan) WHERE newest;
PRAGMA user_version = 1;
)";

std::int64_t NumberFrom(SqliteStore& store, const char* query) {
  SqliteStatement statement(store, query);
  return statement.Next() ? statement.Number(0) : 0;
}

/// Whether there are no tables yet.
bool IsNew(SqliteStore& store) {
  const std::int64_t version = NumberFrom(store, "PRAGMA user_version");
  if (version > kVersion) {
    throw RuntimeFailure(static_cast<int>(Failure::BadFileMode),
                         "history.db was made by a newer version of this program, and is left as it is");
  }
  if (version == kVersion) return false;
  if (NumberFrom(store, "SELECT count(*) FROM sqlite_master") == 0) return true;
  throw RuntimeFailure(static_cast<int>(Failure::BadFileMode),
                       "history.db is not a history of this program, and is left as it is");
}

}  // namespace

HistoryFile::HistoryFile(const ProgramFolder& folder, SqliteStore::Open open)
    : store_(folder.File(kHistoryFile), open) {
  // A scan of 10,000 sites writes 5 MB. In the usual cache of 2 MB it would be written in several pieces,
  // each with a flush of its own.
  store_.Run("PRAGMA foreign_keys = ON; PRAGMA cache_size = -32000");
}

std::vector<ScanRecord> HistoryFile::Scans(const std::string& project) {
  std::vector<ScanRecord> scans;
  if (IsNew(store_)) return scans;
  SqliteStatement rows(store_,
                       "SELECT id, started, finished, type, complete, sites, pages, links, errors "
                       "FROM scan WHERE project = ? ORDER BY id");
  rows.BindBytes(1, project);
  while (rows.Next()) {
    scans.push_back({rows.Number(0), project, rows.Text(1), rows.Text(2),
                     static_cast<ScanType>(rows.Number(3)), rows.Number(4) != 0, rows.Number(5),
                     rows.Number(6), rows.Number(7), rows.Number(8)});
  }
  return scans;
}

HistoryWrite::HistoryWrite(HistoryFile& history) : transaction_(history.Store(), SqliteStore::Open::ToWrite) {
  if (IsNew(history.Store())) history.Store().Run(kTables);
}

}  // namespace requite
