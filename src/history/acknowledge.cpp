// SPDX-License-Identifier: MIT
// The table of marks.
#include "history/acknowledge.h"

#include "history/record_store.h"
#include "platform/text.h"

namespace requite {

std::map<std::int64_t, Acknowledged> AcknowledgedSites(HistoryFile& history, const std::string& project) {
  std::map<std::int64_t, Acknowledged> marks;
  SqliteStatement rows(history.Store(), "SELECT row, since, known, why FROM acknowledged WHERE project = ?");
  rows.BindBytes(1, project);
  while (rows.Next()) marks[rows.Number(0)] = {rows.Text(1), rows.Number(2), rows.Text(3)};
  return marks;
}

void Acknowledge(HistoryFile& history, const std::string& project, const SiteRecord& newest,
                 std::string_view why, const std::string& at) {
  if (!FallsShort(newest)) return;
  HistoryWrite write(history);
  SqliteStatement put(history.Store(),
                      "INSERT OR REPLACE INTO acknowledged(row, project, since, known, why, at) "
                      "VALUES(?, ?, ?, ?, ?, ?)");
  put.Bind(1, newest.Row);
  put.BindBytes(2, project);
  put.Bind(3, newest.Since);
  put.Bind(4, newest.Known);
  put.Bind(5, why);
  put.Bind(6, at);
  put.Run();
  write.Commit();
}

void TakeBackAcknowledged(HistoryFile& history, std::int64_t row) {
  HistoryWrite write(history);
  SqliteStatement remove(history.Store(), "DELETE FROM acknowledged WHERE row = ?");
  remove.Bind(1, row);
  remove.Run();
  write.Commit();
}

std::vector<SiteRecord> SitesNamed(HistoryFile& history, const std::string& project, std::string_view name) {
  const std::string host = SiteOf({}, name).Host;
  // A name with a path means one page, and not all sites of its host.
  const bool isHost =
      !host.empty() && EndsWith(name.substr(0, name.find_last_not_of('/') + 1), host, Compare::Text);
  std::vector<SiteRecord> sites;
  for (SiteRecord& site : NewestRecords(history, project)) {
    if (site.UrlAfter == name || site.UrlBefore == name || (isHost && site.Host == host)) {
      sites.push_back(std::move(site));
    }
  }
  return sites;
}

}  // namespace requite
