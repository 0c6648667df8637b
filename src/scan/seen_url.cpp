// SPDX-License-Identifier: MIT
// Each test is a look-up by key. Linking Sites are compared without any "www.", queued pages with it; letter
// case never counts.
#include "scan/seen_url.h"

#include <algorithm>

#include "platform/runtime_failure.h"
#include "platform/schemes.h"
#include "platform/text.h"

namespace requite {
namespace {

bool IsLinkingSite(Project& project, const std::string& url, HashedText lowerUrl) {
  LinkingSiteList& sites = project.List1(project.CurrentMainSite);
  if (url.find("www.") == std::string::npos) return sites.HasKey(lowerUrl);
  const std::string key = WebsiteKey::Of(url);
  return sites.HasKey(HashedText(key));
}

bool IsDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

Seen WhereSeen(Project& project, PageQueue& queue, const ScanState& state, std::string& url,
               std::string& lowerUrl) {
  RemoveSchemeAndWwwRemains(url);
  SetLower(lowerUrl, url);
  const HashedText key(lowerUrl);
  // Most links lead to pages that were queued before, so this is tested first.
  if (!url.empty() && state.SeenPages.HasUpTo(state.PagesQueued, key)) return Seen::Pages;
  if (!url.empty() && queue.HasKey(key)) return Seen::Queue;
  bool seen = false;
  PassOver([&] { seen = IsLinkingSite(project, url, key); });
  return seen ? Seen::LinkingSites : Seen::Nowhere;
}

bool IsSeenUrl(Project& project, PageQueue& queue, const ScanState& state, std::string& url) {
  std::string lowerUrl;
  return WhereSeen(project, queue, state, url, lowerUrl) != Seen::Nowhere;
}

std::size_t LongestSeenUrl(Project& project, PageQueue& queue, const ScanState& state) {
  std::size_t longest = std::max(state.SeenPages.LongestUrl(), queue.LongestKey());
  PassOver([&] { longest = std::max(longest, project.List1(project.CurrentMainSite).LongestKey()); });
  return longest;
}

bool RecordedPages::IsPageRecorded(std::string& page) {
  if (page != clean_) {
    const std::string before = page;
    RemoveSchemeRemains(page);
    if (page == before) clean_ = page;
  }
  if (!IsDigits(page) && NumbersAreDigits()) return false;
  for (std::size_t row = 0; row < results_.RowCount(); ++row) {
    if (Contains(results_.At(row).No, page, Compare::Text)) return true;
  }
  return false;
}

bool RecordedPages::NumbersAreDigits() {
  const std::size_t rows = results_.RowCount();
  if (rows == checkedRows_ && results_.Version() == checkedVersion_) return true;
  // Every change raises the version by one. If it rose as much as the number of rows, rows were only added,
  // and in an unsorted list they are at the end.
  const bool onlyGrew = !results_.Sort().Sorted && rows >= checkedRows_ &&
                        results_.Version() - checkedVersion_ == rows - checkedRows_;
  for (std::size_t row = onlyGrew ? checkedRows_ : 0; row < rows; ++row) {
    if (!IsDigits(results_.At(row).No)) return false;
  }
  checkedVersion_ = results_.Version();
  checkedRows_ = rows;
  return true;
}

}  // namespace requite
