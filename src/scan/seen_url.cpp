// SPDX-License-Identifier: MIT
// The seen tests, each a look-up by key. What counts as equal is kept exactly: Linking Sites are
// compared without any "www.", queued pages by equal length and text compare.
#include "scan/seen_url.h"

#include <algorithm>

#include "model/schemes.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

bool IsLinkingSite(const ScanContext& context, const std::string& url, const std::string& lowerUrl) {
  LinkingSiteList& sites = context.Project.List1(context.Project.CurrentMainSite);
  const bool hasWww = url.find("www.") != std::string::npos;
  return sites.HasKey(hasWww ? WebsiteKey::Of(url) : lowerUrl);
}

bool IsDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

bool IsSeenUrl(const ScanContext& context, std::string& url) {
  RemoveSchemeAndWwwRemains(url);
  const std::string lowerUrl = Lower(url);
  // Most links lead to pages that were queued before, so that table is asked first. No page holds an
  // empty text.
  const ScanState& state = context.State;
  if (!url.empty() && state.SeenPages.HasUpTo(state.PagesQueued, lowerUrl)) return true;
  if (!url.empty() && context.Lists.List2.HasKey(lowerUrl)) return true;
  bool seen = false;
  PassOver([&] { seen = IsLinkingSite(context, url, lowerUrl); });
  return seen;
}

std::size_t LongestSeenUrl(const ScanContext& context) {
  std::size_t longest = std::max(context.State.SeenPages.LongestUrl(), context.Lists.List2.LongestKey());
  PassOver([&] {
    longest = std::max(longest, context.Project.List1(context.Project.CurrentMainSite).LongestKey());
  });
  return longest;
}

bool RecordedPages::IsPageRecorded(std::string& page) {
  RemoveSchemeRemains(page);
  if (!IsDigits(page) && NumbersAreDigits()) return false;
  const RecordList<LinkResult>& results = context_.Project.List3;
  for (std::size_t row = 0; row < results.RowCount(); ++row) {
    if (Contains(results.At(row).No, page, Compare::Text)) return true;
  }
  return false;
}

bool RecordedPages::NumbersAreDigits() {
  const RecordList<LinkResult>& results = context_.Project.List3;
  const std::size_t rows = results.RowCount();
  // Every change counts the version up by one, so a version that grew by as much as the rows tells that
  // rows were added and nothing else; unsorted, they stand at the end.
  const bool onlyGrew = !results.Sort().Sorted && rows >= checkedRows_ &&
                        results.Version() - checkedVersion_ == rows - checkedRows_;
  for (std::size_t row = onlyGrew ? checkedRows_ : 0; row < rows; ++row) {
    if (!IsDigits(results.At(row).No)) return false;
  }
  checkedVersion_ = results.Version();
  checkedRows_ = rows;
  return true;
}

}  // namespace requite
