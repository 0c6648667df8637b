// SPDX-License-Identifier: MIT
// The state of a site from its verdict, and what one record passes on to the next.
#include "history/site_record.h"

#include <algorithm>
#include <array>

#include "model/url_forms.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::array<std::string_view, 5> kWords = {"ok", "fewer", "none", "unreachable", "redirect"};

/// Reason words of troubles that mostly pass: silence, a refused visitor, a server out of order.
bool MostlyPasses(std::string_view reason) {
  return reason == reason_word::kTimeout || reason.starts_with("403") || reason.starts_with("408") ||
         reason.starts_with('5');
}

/// The kinds of standing that `Since` tells the begin of.
enum class Standing : std::uint8_t { Full, Short, Missing };

Standing StandingOf(const SiteRecord& site) {
  if (site.State == SiteState::None || site.State == SiteState::Unreachable) return Standing::Missing;
  return site.Found < site.Expected ? Standing::Short : Standing::Full;
}

}  // namespace

std::string_view WordOf(SiteState state) { return kWords.at(static_cast<std::size_t>(state)); }

SiteState StateOf(std::string_view word) {
  const auto found = std::find(kWords.begin(), kWords.end(), word);
  return found == kWords.end() ? SiteState::None : static_cast<SiteState>(found - kWords.begin());
}

SiteState StateOf(const SiteVerdict& verdict) {
  if (verdict.End == SiteEnd::Redirect) return SiteState::Redirect;
  if (verdict.LinksBack) return SiteState::Ok;
  if (verdict.LinksCounted > 0) return SiteState::Fewer;
  return MostlyPasses(verdict.Reason) ? SiteState::Unreachable : SiteState::None;
}

bool FallsShort(const SiteRecord& site) { return StandingOf(site) != Standing::Full; }

void Succeed(SiteRecord& site, const SiteRecord* before, const std::string& finished) {
  const bool reached = site.State != SiteState::Unreachable;
  const bool lasts = before != nullptr && StandingOf(*before) == StandingOf(site);
  site.Since = lasts ? before->Since : finished;
  site.Known = reached || before == nullptr ? site.Found : before->Known;
  site.Linked = site.Found > 0 || (before != nullptr && before->Linked);
  if (before == nullptr) return;
  site.Row = before->Row;
  site.Previous = before->Place;
}

ProjectSite SiteOf(std::string_view mainSite, std::string_view url) {
  ProjectSite site{Lower(mainSite), Lower(url), std::string(url)};
  NormaliseMainSite(site.Main);
  BareHost(site.Host);
  return site;
}

}  // namespace requite
