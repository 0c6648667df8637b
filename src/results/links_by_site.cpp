// SPDX-License-Identifier: MIT
// Adds up the rows of each site.
#include "results/links_by_site.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "platform/text.h"

namespace requite {
namespace {

/// Direct, indirect and redirect links, and links to the domain alone.
bool IsLink(const LinkResult& row) {
  return Contains(row.Status, "direct", Compare::Text) || row.Status == status::kDomain;
}

}  // namespace

std::vector<SiteLinks> LinksBySite(const RecordList<LinkResult>& results) {
  std::vector<SiteLinks> sites;
  std::unordered_map<std::string_view, std::size_t> places;
  for (std::size_t row = 0; row < results.RowCount(); ++row) {
    const LinkResult& result = results.At(row);
    const auto [place, isNew] = places.try_emplace(result.Linking, sites.size());
    if (isNew) sites.push_back({result.Linking});
    if (IsLink(result)) ++sites[place->second].Links;
  }
  std::stable_sort(sites.begin(), sites.end(),
                   [](const SiteLinks& a, const SiteLinks& b) { return a.Links > b.Links; });
  return sites;
}

}  // namespace requite
