// SPDX-License-Identifier: MIT
// Words for records of sites.
#include "history/change_words.h"

namespace requite {
namespace {

std::string Pages(const SiteRecord& site) {
  std::string pages;
  for (const LinkRecord& link : site.Links) pages += (pages.empty() ? " at " : ", ") + link.Page;
  return pages;
}

std::string Describe(const SiteRecord& site) {
  if (site.Found > 0) {
    const bool shows = site.Found > 1 || site.Expected > 1;
    const std::string links = std::to_string(site.Found) + (site.Found == 1 ? " link" : " links");
    return links + (shows ? " of " + std::to_string(site.Expected) : "") + Pages(site);
  }
  const std::string words = site.State == SiteState::Unreachable ? "not reached" : "no link";
  return site.Reason.empty() ? words : words + " (" + site.Reason + ")";
}

std::string Now(const SiteChange& change) {
  if (change.Kind == ChangeKind::Removed) return {};
  return Describe(change.Site) + (change.Acknowledged ? ", known: " + change.Why : "");
}

}  // namespace

ChangeLine LineOf(const SiteChange& change) {
  const SiteRecord& site = change.Site;
  return {std::string(WordsOf(change.Kind)),
          site.Main,
          site.Host,
          change.Before ? Describe(*change.Before) : "",
          Now(change),
          change.Kind == ChangeKind::Removed ? "" : site.Since,
          site.Row};
}

}  // namespace requite
