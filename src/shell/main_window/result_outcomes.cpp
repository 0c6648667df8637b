// SPDX-License-Identifier: MIT
// Keeps a tally of rows for each site; a row that is added changes that of its own site alone.
#include "shell/main_window/result_outcomes.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/text.h"
#include "results/report_figures.h"
#include "shell/main_window/form1.h"

namespace requite {
namespace {

constexpr int kFreedAtOnce = 2000;

/// What one row says, whatever else is known of its site.
enum class Says : std::uint8_t { Link, Shortfall, NoneFound, GivenUp };

Says WhatSays(std::string_view text) {
  if (text.starts_with(status::kMissing)) return Says::Shortfall;
  if (ReportStatusOf(text) != ReportStatus::NoneFound) return Says::Link;
  const auto holds = [text](std::string_view reason) {
    return Contains(text, "(" + std::string(reason) + ")", Compare::Text);
  };
  return holds(reason_word::kTimeout) || holds(reason_word::kSkipped) ? Says::GivenUp : Says::NoneFound;
}

bool IsMark(std::string_view linking) { return linking == status::kDirect || linking == status::kNoneFound; }

void Count(SiteCounts& counts, const SiteCounts& more, int times) {
  counts.Sites += times * more.Sites;
  counts.LinkBack += times * more.LinkBack;
  counts.Missing += times * more.Missing;
  counts.NotReached += times * more.NotReached;
}

std::int32_t CountOf(SiteOutcome outcome, const SiteCounts& counts) {
  if (outcome == SiteOutcome::LinksBack) return counts.LinkBack;
  return outcome == SiteOutcome::Missing ? counts.Missing : counts.NotReached;
}

constexpr std::array kOutcomes = {SiteOutcome::Missing, SiteOutcome::LinksBack, SiteOutcome::NotReached};

bool Same(const SiteCounts& a, const SiteCounts& b) {
  return std::all_of(kOutcomes.begin(), kOutcomes.end(),
                     [&](SiteOutcome each) { return CountOf(each, a) == CountOf(each, b); });
}

/// Of counts that are not all zero.
SiteOutcome FirstIn(const SiteCounts& counts) {
  return *std::find_if(kOutcomes.begin(), kOutcomes.end() - 1,
                       [&](SiteOutcome each) { return CountOf(each, counts) > 0; });
}

}  // namespace

ResultOutcomes::ResultOutcomes(Form1& form) : form_(form), list_(form.Sites.List3) {
  form_.SiteListeners.push_back(this);
}

ResultOutcomes::~ResultOutcomes() { std::erase(form_.SiteListeners, static_cast<SiteEvents*>(this)); }

SiteCounts ResultOutcomes::Site::Counts() const {
  const int rows = Links + Shortfalls + NoneFound + GivenUp;
  if (rows == 0) return {};
  if (Marked) return {rows, Links, Shortfalls + NoneFound, GivenUp};
  if (Told.Sites > 0) return Told;
  return OfRows();
}

SiteCounts ResultOutcomes::Site::OfRows() const {
  SiteCounts one;
  one.Add(Links > 0 && Shortfalls == 0, NoneFound > 0 || Links > 0 || Shortfalls > 0);
  return one;
}

const SiteCounts& ResultOutcomes::Counts() {
  for (int freed = 0; freed < kFreedAtOnce && !gone_.empty(); ++freed) gone_.erase(gone_.begin());
  if (recount_) Recount();
  return counts_;
}

/// Where several sites of one host ended differently, the row's own words say which one it may belong to.
SiteOutcome ResultOutcomes::Of(std::size_t row) {
  if (recount_) Recount();
  const LinkResult& result = list_.At(row);
  const Site& site = SiteFor(result);
  Site alone;
  switch (WhatSays(result.Status)) {
    case Says::Link: alone.Links = 1; break;
    case Says::Shortfall: alone.Shortfalls = 1; break;
    case Says::NoneFound: alone.NoneFound = 1; break;
    case Says::GivenUp: alone.GivenUp = 1; break;
  }
  const SiteOutcome own = FirstIn(alone.OfRows());
  const SiteCounts counts = site.Counts();
  return CountOf(own, counts) > 0 || counts.Sites == 0 ? own : FirstIn(counts);
}

ResultOutcomes::Site& ResultOutcomes::SiteFor(const LinkResult& row) {
  Site& site = sites_[row.Main + '\n' + row.Linking];
  site.Marked = IsMark(row.Linking);
  return site;
}

template <class Change>
void ResultOutcomes::Alter(Site& site, Change&& change) {
  const SiteCounts before = site.Counts();
  change();
  const SiteCounts after = site.Counts();
  if (before.Sites > 0 && !Same(before, after)) ++version_;
  Count(counts_, before, -1);
  Count(counts_, after, 1);
}

void ResultOutcomes::RowAdded(std::size_t row) {
  if (recount_) return;
  ++counted_;
  const LinkResult& result = list_.At(row);
  Site& site = SiteFor(result);
  Alter(site, [&] {
    switch (WhatSays(result.Status)) {
      case Says::Link: ++site.Links; break;
      case Says::Shortfall: ++site.Shortfalls; break;
      case Says::NoneFound: ++site.NoneFound; break;
      case Says::GivenUp: ++site.GivenUp; break;
    }
  });
}

void ResultOutcomes::ListReset() {
  // The window must not wait until a hundred thousand sites are freed.
  if (list_.Empty() && !sites_.empty()) gone_ = std::exchange(sites_, {});
  // Rows that were only put in another order are still the same rows.
  if (list_.Empty() || list_.RowCount() != counted_) Forget();
}

void ResultOutcomes::Forget() {
  ++version_;
  recount_ = true;
}

/// The state still has the names that the rows of the site were written with.
void ResultOutcomes::SiteFinished(const SiteVerdict& verdict) {
  if (recount_) Recount();
  Site& site = sites_[form_.State.MainSiteKey + '\n' + form_.State.CurrentLinkingUrl];
  Alter(site, [&] { site.Told.Add(verdict.LinksBack, verdict.Reached); });
}

void ResultOutcomes::Recount() {
  recount_ = false;
  counts_ = {};
  counted_ = 0;
  for (auto& [name, site] : sites_) site.Links = site.Shortfalls = site.NoneFound = site.GivenUp = 0;
  for (std::size_t row = 0; row < list_.RowCount(); ++row) RowAdded(row);
}

}  // namespace requite
