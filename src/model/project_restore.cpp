// SPDX-License-Identifier: MIT
// Takes the text apart by the order in which it was written: sites, Page Builder texts, then marked lines.
#include "model/project_restore.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "model/project_text.h"
#include "platform/files.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

using Lines = std::vector<std::string_view>;

Lines LinesOf(std::string_view text) {
  Lines lines;
  LineReader reader(text, LineEnds::CarriageReturn);
  while (const auto next = reader.Next()) lines.push_back(*next);
  // A project file has one more line end than its text.
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

constexpr std::array kHtmlMarkers = {marker::kHtml1, marker::kHtml2, marker::kHtml3};

/// The kinds of line after the Page Builder texts, with their numbers of fields.
struct MarkedLine {
  std::string_view Marker;
  std::size_t Fields;
};
constexpr std::array kMarkedLines = {MarkedLine{marker::kResult, 6}, MarkedLine{marker::kRule, 4},
                                     MarkedLine{marker::kPostMulti, 2}, MarkedLine{marker::kPostSingle, 1}};

bool IsMarked(std::string_view line) {
  return std::any_of(kMarkedLines.begin(), kMarkedLines.end(),
                     [&](const MarkedLine& each) { return line.starts_with(each.Marker); });
}

/// The place of the three Page Builder texts: a site may have the text of a marker too, so the last place
/// counts that has only marked lines after it.
std::optional<std::size_t> PlaceOfHtml(const Lines& lines) {
  std::size_t end = lines.size();
  while (end > 0 && IsMarked(lines[end - 1])) --end;
  if (end < kHtmlMarkers.size()) return std::nullopt;
  const std::size_t place = end - kHtmlMarkers.size();
  for (std::size_t i = 0; i < kHtmlMarkers.size(); ++i) {
    if (!lines[place + i].starts_with(kHtmlMarkers[i])) return std::nullopt;
  }
  return place;
}

/// The first `count` fields of a line; the last one takes the rest of the line, bars and all.
std::optional<std::vector<std::string>> Split(std::string_view line, std::size_t count) {
  std::vector<std::string> fields;
  while (fields.size() + 1 < count) {
    const std::size_t bar = line.find('|');
    if (bar == std::string_view::npos) return std::nullopt;
    fields.emplace_back(line.substr(0, bar));
    line.remove_prefix(bar + 1);
  }
  fields.emplace_back(line);
  return fields;
}

/// The Link Page Text is written twice, so a text with bars is the first stretch that comes twice.
std::optional<LinkingSite> SiteOf(std::string_view line) {
  const auto fields = Split(line, 4);
  if (!fields) return std::nullopt;
  const std::string_view rest = fields->back();
  for (std::size_t bar = rest.find('|'); bar != std::string_view::npos; bar = rest.find('|', bar + 1)) {
    const std::string_view text = rest.substr(0, bar);
    const std::string_view again = rest.substr(bar + 1);
    if (!again.starts_with(text) || again.substr(text.size(), 1) != "|") continue;
    return LinkingSite{(*fields)[0], (*fields)[1], (*fields)[2], std::string(text),
                       std::string(again.substr(text.size() + 1))};
  }
  return std::nullopt;
}

struct Sites {
  std::string MainSite;
  std::vector<LinkingSite> LinkingSites;
};

std::optional<std::vector<Sites>> SitesOf(const Lines& lines, std::size_t end) {
  std::vector<Sites> all;
  for (std::size_t i = 0; i < end; ++i) {
    const bool next = lines[i].starts_with(marker::kNextSite);
    if (i == 0 || next) {
      all.push_back({std::string(lines[i].substr(i > 0 ? marker::kNextSite.size() : 0)), {}});
      continue;
    }
    auto site = SiteOf(lines[i]);
    if (!site) return std::nullopt;
    all.back().LinkingSites.push_back(std::move(*site));
  }
  if (all.size() > std::numeric_limits<std::int16_t>::max()) return std::nullopt;
  return all;
}

template <class Record>
void Append(RecordList<Record>& list, Record record, int icon = 0) {
  list.Insert(list.RowCount(), std::move(record), icon);
}

struct Marked {
  std::string_view Marker;
  std::vector<std::string> Fields;
};

std::optional<Marked> MarkedOf(std::string_view line) {
  for (const MarkedLine& each : kMarkedLines) {
    if (!line.starts_with(each.Marker)) continue;
    auto fields = Split(line.substr(each.Marker.size()), each.Fields);
    if (fields) return Marked{each.Marker, std::move(*fields)};
  }
  return std::nullopt;
}

std::optional<int> IconOf(const std::string& field) {
  int icon = 0;
  const bool isNumber = PassOver([&] { icon = ReadInt16(field); });
  return isNumber && std::to_string(icon) == field ? std::optional(icon) : std::nullopt;
}

bool IsWritten(std::string_view line) {
  const auto marked = MarkedOf(line);
  return marked && (marked->Marker != marker::kResult || IconOf(marked->Fields[0]));
}

void TakeMarked(std::string_view line, Project& project) {
  const auto marked = MarkedOf(line);
  if (!marked) return;
  const auto& f = marked->Fields;
  if (marked->Marker == marker::kResult) {
    Append(project.List3, LinkResult{f[1], f[2], f[3], f[4], f[5]}, IconOf(f[0]).value_or(0));
  } else if (marked->Marker == marker::kRule) {
    Append(project.lstRules, Rule{f[0], f[1], f[2], f[3]});
  } else if (marked->Marker == marker::kPostMulti) {
    Append(project.lstMulti, ScriptUrlEntry{f[0], f[1]});
  } else {
    project.txtPost.SetText(f[0]);
  }
}

std::string HtmlOf(std::string_view line) {
  return Replace(line.substr(marker::kHtml1.size()), kLineEndMark, kLineEnd, Compare::Binary);
}

}  // namespace

bool RestoreProjectText(std::string_view text, Project& project) {
  const Lines lines = LinesOf(text);
  const auto place = PlaceOfHtml(lines);
  if (!place) return false;
  auto sites = SitesOf(lines, *place);
  const auto afterHtml = lines.begin() + static_cast<std::ptrdiff_t>(*place + kHtmlMarkers.size());
  if (!sites || !std::all_of(afterHtml, lines.end(), IsWritten)) return false;
  for (Sites& each : *sites) {
    project.AddMainSite(std::move(each.MainSite));
    LinkingSiteList& list = project.List1(project.ListCount());
    for (LinkingSite& site : each.LinkingSites) Append(list, std::move(site));
  }
  project.txtHTML1.SetText(HtmlOf(lines[*place]));
  project.txtHTML2.SetText(HtmlOf(lines[*place + 1]));
  project.txtHTML3.SetText(HtmlOf(lines[*place + 2]));
  project.txtPost.SetText("");
  for (auto line = afterHtml; line != lines.end(); ++line) TakeMarked(*line, project);
  return true;
}

}  // namespace requite
