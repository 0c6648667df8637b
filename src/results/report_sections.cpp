// SPDX-License-Identifier: MIT
// The sections of the report, Main Site by Main Site. Nothing in them ends a line but the heading.
#include "results/report_sections.h"

#include <algorithm>

#include "model/url_forms.h"
#include "platform/text.h"
#include "results/report_figures.h"

namespace requite {
namespace {

std::string HostOf(std::string url) {
  BareHost(url);
  return url;
}

void WriteEntry(std::string& page, const std::string& host, const LinkResult& result) {
  // The target has no scheme, so a browser takes it for a relative link. Kept as it is.
  page.append("Site: <a href='").append(host).append("'>").append(host).append("</a><BR>");
  switch (ReportStatusOf(result.Status)) {
    case ReportStatus::Direct:
    case ReportStatus::Indirect:
    case ReportStatus::Redirect:
      page.append("Status: ").append(result.Status).append("<BR>");
      page.append("Found On: <a href='").append(result.LinkUrl).append("'>");
      page.append(result.LinkUrl).append("</a><BR>");
      break;
    case ReportStatus::NoneFound: page.append("Status: ").append(result.Status).append("<BR>"); break;
    case ReportStatus::Other: break;
  }
  page.append("<BR>");
}

}  // namespace

void ReportSections::WriteTo(std::string& page) {
  for (int k = 1; k <= project_.ListCount(); ++k) {
    const auto row = static_cast<std::size_t>(k) - 1;
    if (row >= project_.List4.RowCount()) return;
    page.append("<h3>").append(project_.List4.At(row).Text).append("</h3>").append(kLineEnd);
    WriteMainSite(page, k);
    eventLoop_.LetPendingEventsRun();
  }
}

void ReportSections::WriteMainSite(std::string& page, int k) {
  for (std::size_t site = 0; k <= project_.ListCount() && site < project_.List1(k).RowCount(); ++site) {
    WriteLinkingSite(page, HostOf(project_.List1(k).At(site).WebsiteUrl));
    eventLoop_.LetPendingEventsRun();
  }
}

void ReportSections::WriteLinkingSite(std::string& page, const std::string& host) {
  for (std::int64_t row = NextRowOf(host, 0); row >= 0;) {
    const auto found = static_cast<std::size_t>(row);
    WriteEntry(page, host, project_.List3.At(found));
    eventLoop_.LetPendingEventsRun();
    row = NextRowOf(host, found + 1);
  }
}

std::int64_t ReportSections::NextRowOf(const std::string& host, std::size_t from) {
  if (!indexed_ || indexedVersion_ != project_.List3.Version()) BuildIndex();
  const auto rows = rowsOfHost_.find(host);
  if (rows == rowsOfHost_.end()) return -1;
  const auto row = std::lower_bound(rows->second.begin(), rows->second.end(), from);
  return row == rows->second.end() ? -1 : static_cast<std::int64_t>(*row);
}

void ReportSections::BuildIndex() {
  rowsOfHost_.clear();
  for (std::size_t row = 0; row < project_.List3.RowCount(); ++row) {
    rowsOfHost_[HostOf(project_.List3.At(row).Linking)].push_back(row);
  }
  indexedVersion_ = project_.List3.Version();
  indexed_ = true;
}

}  // namespace requite
