// SPDX-License-Identifier: MIT
// From the records of the program, in its code page, to those of an outcome, in UTF-8.
#include "console/outcome_collector.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace requite {
namespace {

/// Whether a row of the results is about a link and not about links that are missing.
bool IsLink(const LinkResult& row) {
  constexpr std::array kLinks = {status::kDirect, status::kIndirect, status::kRedirect, status::kDomain};
  return std::find(kLinks.begin(), kLinks.end(), row.Status) != kLinks.end();
}

int NumberOf(const LinkResult& row) {
  int number = 0;
  std::from_chars(row.No.data(), row.No.data() + row.No.size(), number);
  return number;
}

}  // namespace

OutcomeCollector::OutcomeCollector(ConsoleProgram& program) : program_(program) {
  program_.Form1.SiteListeners.push_back(this);
}

OutcomeCollector::~OutcomeCollector() {
  std::erase(program_.Form1.SiteListeners, static_cast<SiteEvents*>(this));
}

void OutcomeCollector::SiteBegins(const ScannedSite&) {
  firstRow_ = program_.Form1.Sites.List3.RowCount();
  began_ = std::chrono::steady_clock::now();
}

void OutcomeCollector::SiteFinished(const SiteVerdict& verdict) {
  // Pages may be scanned without the begin of a site.
  const bool begun = verdict.Site.MainSiteNumber > 0;
  ScanOutcome::Site site;
  site.MainSite = Utf8(begun ? verdict.Site.MainSite : program_.Form1.State.MainSiteKey);
  site.LinkingSite = Utf8(begun ? verdict.Site.LinkingSite : verdict.Url);
  site.Expected = verdict.LinksExpected;
  site.Links = NewLinks();
  site.Found = verdict.End == SiteEnd::Redirect ? 1 : verdict.LinksCounted;
  site.LinksBack = verdict.LinksBack;
  site.Reached = verdict.Reached;
  site.Skipped = verdict.Reason == reason_word::kSkipped;
  // A site that links back may keep the note of a page that was read before.
  if (!verdict.LinksBack) site.Reason = Utf8(verdict.Reason);
  const auto now = std::chrono::steady_clock::now();
  site.Took = std::chrono::duration_cast<std::chrono::milliseconds>(now - std::exchange(began_, now));
  outcome_.Sites.push_back(std::move(site));
}

std::vector<ScanOutcome::Link> OutcomeCollector::NewLinks() {
  const RecordList<LinkResult>& rows = program_.Form1.Sites.List3;
  std::vector<ScanOutcome::Link> links;
  for (; firstRow_ < rows.RowCount(); ++firstRow_) {
    const LinkResult& row = rows.At(firstRow_);
    if (IsLink(row)) links.push_back({Utf8(row.Status), NumberOf(row), Utf8(row.LinkUrl)});
  }
  return links;
}

ScanOutcome OutcomeCollector::Take(const std::string& project, bool complete) {
  outcome_.Project = project;
  outcome_.Finished = program_.Form1.Platform.Clock.UtcDateTime();
  outcome_.Complete = complete;
  const RecordList<ErrorEntry>& errors = program_.Form1.Lists.lstErr;
  for (std::size_t row = 0; row < errors.RowCount(); ++row) {
    outcome_.Errors.push_back({Utf8(errors.At(row).Error), Utf8(errors.At(row).Url)});
  }
  const RecordList<LinkResult>& results = program_.Form1.Sites.List3;
  for (std::size_t column = 0; column < results.ColumnCount(); ++column) {
    outcome_.Captions.emplace_back(results.Caption(column));
  }
  for (std::size_t row = 0; row < results.RowCount(); ++row) {
    ScanOutcome::Row fields = RowFields(results, row);
    for (std::string& field : fields) field = Utf8(field);
    outcome_.Rows.push_back(std::move(fields));
  }
  return std::move(outcome_);
}

}  // namespace requite
