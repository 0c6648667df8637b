// SPDX-License-Identifier: MIT
// The rows of the tables, and their two forms.
#include "console/change_output.h"

#include <algorithm>
#include <ostream>
#include <utility>

#include "history/change_words.h"

namespace requite {
namespace {

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
  Table table(1);
  for (const auto& column : ChangeLine::Columns()) table.front().emplace_back(column.Caption);
  for (const SiteChange& change : list.Changes) {
    ChangeLine line = LineOf(change);
    std::vector<std::string>& row = table.emplace_back();
    for (const auto& column : ChangeLine::Columns()) row.push_back(std::move(line.*column.Field));
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
