// SPDX-License-Identifier: MIT
// Makes records of verdicts and result rows.
#include "history/scan_recorder.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <utility>

#include "history/change_list.h"
#include "history/history_file.h"
#include "history/store_scan.h"
#include "model/url_forms.h"
#include "platform/runtime_failure.h"

namespace requite {
namespace {

constexpr std::string_view kNoLink = "000";  // the number of rows that say that links are missing

/// Texts of the two columns that say which site a result row is about.
struct RowNames {
  std::string Main;
  std::string Linking;
};

RowNames NamesOf(const ScannedSite& site) {
  RowNames names{site.MainSite, site.LinkingSite};
  NormaliseMainSite(names.Main);
  BareHost(names.Linking);
  return names;
}

/// The sites of the project without those that were recorded.
std::vector<ProjectSite> OthersThan(const std::vector<SiteRecord>& recorded, const Project& project) {
  std::multiset<std::pair<std::string, std::string>> ours;
  for (const SiteRecord& site : recorded) ours.emplace(site.Main, site.UrlAfter);
  std::vector<ProjectSite> others = SitesOf(project);
  std::erase_if(others, [&](const ProjectSite& site) {
    const auto found = ours.find({site.Main, site.Url});
    if (found == ours.end()) return false;
    ours.erase(found);
    return true;
  });
  return others;
}

}  // namespace

bool KeepsHistory(const Settings& settings) { return settings.GetSetting(setting::chkHistory) == "1"; }

std::string NameInHistory(const std::string& path) {
  if (path.empty()) return {};
  std::error_code none;
  return std::filesystem::absolute(path, none).lexically_normal().string();
}

ScanRecorder::ScanRecorder(const Project& project, const std::string& path, std::string started)
    : project_(project), path_(NameInHistory(path)), started_(std::move(started)) {}

void ScanRecorder::SiteFinished(const SiteVerdict& verdict) {
  const bool skipped = std::exchange(skipping_, false) || verdict.Reason == reason_word::kSkipped;
  if (verdict.Site.MainSiteNumber == 0) return;  // pages that belong to no site of the project
  SiteRecord site;
  site.State = StateOf(verdict);
  site.Found = site.State == SiteState::Redirect ? 1 : verdict.LinksCounted;
  site.Links = TakeLinks(verdict.Site, static_cast<std::size_t>(site.Found));
  if (skipped) return;
  site.UrlBefore = verdict.Site.LinkingSite;
  const std::string inList = UrlInList(verdict.Site);
  const bool renamed = std::any_of(site.Links.begin(), site.Links.end(),
                                   [&](const LinkRecord& link) { return link.Page == inList; });
  site.UrlAfter = renamed ? inList : site.UrlBefore;
  const ProjectSite after = SiteOf(verdict.Site.MainSite, site.UrlAfter);
  site.Main = after.Main;
  site.Host = after.Host;
  site.Expected = verdict.LinksExpected;
  site.Reason = verdict.Reason;
  sites_.push_back(std::move(site));
}

/// The user can delete and sort sites during a scan, so the row may not exist, or show another site.
std::string ScanRecorder::UrlInList(const ScannedSite& site) const {
  std::string url;
  PassOver([&] {
    url = project_.List1(site.MainSiteNumber).At(static_cast<std::size_t>(site.SiteRow - 1)).WebsiteUrl;
  });
  return url;
}

/// The rows of the site that has just been finished are the last ones, unless the list is sorted. Then they
/// are those of its names that no earlier site has got.
std::vector<LinkRecord> ScanRecorder::TakeLinks(const ScannedSite& site, std::size_t count) {
  const RecordList<LinkResult>& results = project_.List3;
  const RowNames names = NamesOf(site);
  std::multiset<std::string>& given = given_[names.Main + '\n' + names.Linking];
  const bool sorted = results.Sort().Sorted;
  std::multiset<std::string> others = sorted ? given : std::multiset<std::string>();
  // One row more than links: the last one may say that some are missing.
  const std::size_t first = sorted ? 0 : results.RowCount() - std::min(results.RowCount(), count + 1);
  std::vector<LinkRecord> links;
  for (std::size_t row = results.RowCount(); row > first && links.size() < count; --row) {
    const LinkResult& result = results.At(row - 1);
    if (result.No == kNoLink || result.Linking != names.Linking || result.Main != names.Main) continue;
    const std::string mark = result.No + result.LinkUrl;
    if (const auto other = others.find(mark); other != others.end()) {
      others.erase(other);
      continue;
    }
    given.insert(mark);
    links.push_back({result.Status, result.No, result.LinkUrl});
  }
  std::reverse(links.begin(), links.end());
  return links;
}

std::optional<ChangeCounts> ScanRecorder::Store(const ProgramFolder& folder, ScanRecord figures) {
  if (sites_.empty()) return std::nullopt;
  if (path_.empty()) {
    throw RuntimeFailure(static_cast<int>(Failure::PathNotFound), "the project has not been saved yet");
  }
  figures.Project = path_;
  figures.Started = started_;
  figures.Complete = !stopped_;
  HistoryFile history(folder, SqliteStore::Open::ToWrite);
  const std::vector<ProjectSite> others = OthersThan(sites_, project_);
  StoreScan(history, std::move(figures), std::move(sites_), others);
  const ChangeList changes = ReadChanges(history, path_, SitesOf(project_), {});
  return changes.ComparedWith ? std::optional(changes.Counts) : std::nullopt;
}

}  // namespace requite
