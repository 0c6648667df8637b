// SPDX-License-Identifier: MIT
// Three rounds of looking up; what an earlier round has found is not looked for again.
#include "history/row_match.h"

#include <deque>
#include <string>
#include <unordered_map>

namespace requite {
namespace {

class Matching {
 public:
  Matching(const std::vector<ProjectSite>& sites, const std::vector<SiteRecord>& newest)
      : sites_(sites), newest_(newest), taken_(newest.size()), found_(sites.size()) {}

  void Round(std::string SiteRecord::*ofRecord, std::string ProjectSite::*ofSite) {
    std::unordered_map<std::string, std::deque<std::size_t>> waiting;
    for (std::size_t i = 0; i < newest_.size(); ++i) {
      if (!taken_[i]) waiting[Key(newest_[i].Main, newest_[i].*ofRecord)].push_back(i);
    }
    for (std::size_t i = 0; i < sites_.size(); ++i) {
      if (found_[i]) continue;
      const auto at = waiting.find(Key(sites_[i].Main, sites_[i].*ofSite));
      if (at == waiting.end() || at->second.empty()) continue;
      found_[i] = at->second.front();
      taken_[at->second.front()] = true;
      at->second.pop_front();
    }
  }

  [[nodiscard]] std::vector<std::optional<std::size_t>> Take() { return std::move(found_); }

 private:
  /// No Main Site holds a line feed, so two keys are equal only when both parts are.
  static std::string Key(const std::string& main, const std::string& text) { return main + '\n' + text; }

  const std::vector<ProjectSite>& sites_;
  const std::vector<SiteRecord>& newest_;
  std::vector<bool> taken_;
  std::vector<std::optional<std::size_t>> found_;
};

}  // namespace

std::vector<std::optional<std::size_t>> MatchRows(const std::vector<ProjectSite>& sites,
                                                  const std::vector<SiteRecord>& newest) {
  Matching matching(sites, newest);
  matching.Round(&SiteRecord::UrlAfter, &ProjectSite::Url);
  matching.Round(&SiteRecord::UrlBefore, &ProjectSite::Url);
  matching.Round(&SiteRecord::Host, &ProjectSite::Host);
  return matching.Take();
}

}  // namespace requite
