// SPDX-License-Identifier: MIT
// Words for records, and the two forms of a table.
#include "console/change_output.h"

#include <algorithm>
#include <ostream>

namespace requite {
namespace {

std::string Pages(const SiteRecord& site) {
  std::string pages;
  for (const LinkRecord& link : site.Links) pages += (pages.empty() ? " at " : ", ") + link.Page;
  return pages;
}

std::string Describe(const SiteRecord& site) {
  if (site.Found > 0) {
    const bool shows = site.Found > 1 || site.Expected > 1;
    const std::string links = std::to_string(site.Found) + (site.Found == 1 ? " link" : " links");
    return links + (shows ? " of " + std::to_string(site.Expected) : "") + Pages(site);
  }
  const std::string words = site.State == SiteState::Unreachable ? "not reached" : "no link";
  return site.Reason.empty() ? words : words + " (" + site.Reason + ")";
}

std::string Now(const SiteChange& change) {
  if (change.Kind == ChangeKind::Removed) return {};
  return Describe(change.Site) + (change.Acknowledged ? ", known: " + change.Why : "");
}

std::string_view WordsOf(ScanType type) {
  switch (type) {
    case ScanType::SelectedMainSite: return "selected Main Site";
    case ScanType::SelectedLinkingSite: return "selected Linking Site";
    case ScanType::AllMainSites: break;
  }
  return "all Main Sites";
}

}  // namespace

Table ChangeTable(const ChangeList& list) {
  Table table{{"Change", "Main Site", "Linking Site", "Before", "Now", "Since"}};
  for (const SiteChange& change : list.Changes) {
    const SiteRecord& site = change.Site;
    table.push_back({std::string(WordsOf(change.Kind)), site.Main, site.Host,
                     change.Before ? Describe(*change.Before) : "", Now(change),
                     change.Kind == ChangeKind::Removed ? "" : site.Since});
  }
  return table;
}

Table ScanTable(const std::vector<ScanRecord>& scans) {
  Table table{{"ID", "Started", "Finished", "Type", "Complete", "Sites", "Pages", "Links", "Errors"}};
  for (const ScanRecord& scan : scans) {
    table.push_back({std::to_string(scan.Id), scan.Started, scan.Finished, std::string(WordsOf(scan.Type)),
                     scan.Complete ? "yes" : "no", std::to_string(scan.Sites), std::to_string(scan.Pages),
                     std::to_string(scan.Links), std::to_string(scan.Errors)});
  }
  return table;
}

void PrintTabbed(const Table& table, const TextCodec& codec, std::ostream& out) {
  for (const auto& row : table) {
    std::string line;
    for (const std::string& field : row)
      line += (line.empty() && &field == &row.front() ? "" : "\t") + Escaped(field);
    out << codec.ToUtf8(line) << '\n';
  }
}

void PrintAligned(const Table& table, const TextCodec& codec, std::ostream& out) {
  constexpr std::size_t kGap = 2;
  std::vector<std::size_t> widths(table.front().size());
  for (const auto& row : table) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Escaped(row[i]).size());
  }
  for (const auto& row : table) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string field = Escaped(row[i]);
      line.append(field).append(widths[i] - field.size() + kGap, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << codec.ToUtf8(line) << '\n';
  }
}

}  // namespace requite
