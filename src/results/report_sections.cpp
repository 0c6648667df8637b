// SPDX-License-Identifier: MIT
// Writes the sections of the report, Main Site by Main Site. Only the heading ends its line.
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

void WriteEntry(SpooledText& page, const std::string& host, const LinkResult& result) {
  // The target has no scheme, so browsers take it for a relative link. ReportForView knows links by this
  // form.
  page.Append("Site: <a href='").Append(host).Append("'>").Append(host).Append("</a><BR>");
  switch (ReportStatusOf(result.Status)) {
    case ReportStatus::Direct:
    case ReportStatus::Indirect:
    case ReportStatus::Redirect:
      page.Append("Status: ").Append(result.Status).Append("<BR>");
      page.Append("Found On: <a href='").Append(result.LinkUrl).Append("'>");
      page.Append(result.LinkUrl).Append("</a><BR>");
      break;
    case ReportStatus::NoneFound: page.Append("Status: ").Append(result.Status).Append("<BR>"); break;
    case ReportStatus::Other: break;
  }
  page.Append("<BR>");
}

}  // namespace

void ReportSections::WriteTo(SpooledText& page) {
  for (int k = 1; k <= project_.ListCount(); ++k) {
    const auto row = static_cast<std::size_t>(k) - 1;
    if (row >= project_.List4.RowCount()) return;
    page.Append("<h3>").Append(project_.List4.At(row).Text).Append("</h3>").Append(kLineEnd);
    WriteMainSite(page, k);
    eventLoop_.LetPendingEventsRun();
  }
}

void ReportSections::WriteMainSite(SpooledText& page, int k) {
  for (std::size_t site = 0; k <= project_.ListCount() && site < project_.List1(k).RowCount(); ++site) {
    WriteLinkingSite(page, HostOf(project_.List1(k).At(site).WebsiteUrl));
    eventLoop_.LetPendingEventsRun();
  }
}

void ReportSections::WriteLinkingSite(SpooledText& page, const std::string& host) {
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
