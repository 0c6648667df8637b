// SPDX-License-Identifier: MIT
// Builds the index of the look-ups: for each field the first row that has it filled in.
#include "pagebuilder/link_pages.h"

#include "model/url_forms.h"
#include "platform/text.h"

namespace requite {
namespace {

std::string OrHost(std::string_view field, std::string_view linking) {
  std::string text(field.empty() ? linking : field);
  return field.empty() ? BareHost(text) : text;
}

void KeepFirst(std::string_view& kept, const std::string& field) {
  if (kept.empty()) kept = field;
}

}  // namespace

LinkPages::LinkPages(const Project& project) : project_(project) {
  const std::size_t count = project.List4.RowCount();
  for (std::size_t row = 0; row < count; ++row) {
    mainSites_.try_emplace(Trim(project.List4.At(row).Text), static_cast<std::int16_t>(row));
  }
  mainSites_.try_emplace("", static_cast<std::int16_t>(count));
}

std::int16_t LinkPages::FindMainSiteIndex(std::string_view text) const {
  const auto found = mainSites_.find(Trim(text));
  return found == mainSites_.end() ? std::int16_t{0} : found->second;
}

std::string LinkPages::GetLinkPageUrl(std::string_view linking, int k) {
  return OrHost(Find(linking, k).Url, linking);
}

std::string LinkPages::GetLinkPageText(std::string_view linking, int k) {
  return OrHost(Find(linking, k).Text, linking);
}

std::string LinkPages::GetLinkPageDescription(std::string_view linking, int k) {
  return std::string(Find(linking, k).Description);
}

LinkPages::Fields LinkPages::Find(std::string_view linking, int k) {
  auto list = lists_.find(k);
  if (list == lists_.end()) list = lists_.emplace(k, IndexOf(k)).first;
  const auto found = list->second.find(linking);
  return found == list->second.end() ? Fields{} : found->second;
}

LinkPages::List LinkPages::IndexOf(int k) const {
  List list;
  if (k < 1 || k > project_.ListCount()) return list;
  const LinkingSiteList& sites = project_.List1(k);
  list.reserve(sites.RowCount());
  for (std::size_t row = 0; row < sites.RowCount(); ++row) {
    const LinkingSite& site = sites.At(row);
    Fields& fields = list[site.WebsiteUrl];
    KeepFirst(fields.Url, site.LinkPageUrl);
    KeepFirst(fields.Text, site.LinkPageText);
    KeepFirst(fields.Description, site.Description);
  }
  return list;
}

}  // namespace requite
