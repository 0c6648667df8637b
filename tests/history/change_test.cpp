// SPDX-License-Identifier: MIT
// The kinds of change between two results of a site.
#include "history/change.h"

#include <gtest/gtest.h>

namespace requite {
namespace {

struct Result {
  SiteState State;
  int Found;
  std::vector<const char*> Pages;
};

/// One result after the other; each takes over from the one before.
std::vector<SiteRecord> Chain(const std::vector<Result>& results, int expected) {
  std::vector<SiteRecord> chain;
  chain.reserve(results.size());
  for (const Result& result : results) {
    SiteRecord site;
    site.State = result.State;
    site.Found = result.Found;
    site.Expected = expected;
    for (const char* page : result.Pages) site.Links.push_back({"Direct Link", "001", page});
    Succeed(site, chain.empty() ? nullptr : &chain.back(), std::to_string(chain.size() + 1));
    chain.push_back(std::move(site));
  }
  return chain;
}

struct Case {
  const char* What;
  int Expected;
  std::vector<Result> Results;
  const char* Told;
  const char* Since;
};

TEST(Change, IsToldByTheResultsOfASite) {
  using enum SiteState;
  const Result none{None, 0, {}};
  const Result away{Unreachable, 0, {}};
  const Result one{Ok, 1, {"p"}};
  const Result half{Fewer, 1, {"p"}};
  const Result both{Ok, 2, {"p", "q"}};
  for (const Case& row :
       std::vector<Case>{{"the first result", 1, {none}, "added", "1"},
                         {"links as before", 1, {one, one}, "same", "1"},
                         {"never linked, and links", 1, {none, away, one}, "new", "3"},
                         {"is back", 1, {one, none, one}, "found again", "3"},
                         {"back after silence", 1, {one, away, one}, "found again", "3"},
                         {"gone", 1, {one, one, none}, "lost", "3"},
                         {"silent, then found to be gone", 1, {one, away, none}, "lost", "2"},
                         {"gone for long", 1, {one, none, none, none}, "still missing", "2"},
                         {"gone, and silent since", 1, {one, none, away}, "still missing", "2"},
                         {"silent", 1, {one, away}, "unreachable", "2"},
                         {"silent for long", 1, {one, away, away}, "unreachable", "2"},
                         {"one of two is gone", 2, {both, half}, "fewer", "2"},
                         {"one of two after silence", 2, {both, away, half}, "fewer", "3"},
                         {"one of two as before", 2, {half, half}, "still missing", "1"},
                         {"the second has come", 2, {half, both}, "found again", "2"},
                         {"more than expected", 1, {one, both}, "same", "1"},
                         {"more than enough is less", 1, {both, one}, "same", "1"},
                         {"on another page", 1, {one, {Ok, 1, {"q"}}}, "moved", "1"},
                         {"one of two on another page", 2, {both, {Ok, 2, {"q", "r"}}}, "moved", "1"},
                         {"a redirect to the same page", 1, {one, {Redirect, 1, {"p"}}}, "same", "1"},
                         {"none is expected", 0, {{Ok, 0, {}}, {Ok, 0, {}}}, "same", "1"}}) {
    const std::vector<SiteRecord> chain = Chain(row.Results, row.Expected);
    const auto before = chain.size() > 1 ? std::optional(chain[chain.size() - 2]) : std::nullopt;
    EXPECT_EQ(WordsOf(ChangeBetween(before, chain.back())), row.Told) << row.What;
    EXPECT_EQ(chain.back().Since, row.Since) << row.What;
  }
  // More links expected than before: the user's wish has changed, and no link is lost.
  SiteRecord more = Chain({one}, 1).back();
  more.Expected = 2;
  more.State = Fewer;
  EXPECT_EQ(WordsOf(ChangeBetween(Chain({one}, 1).back(), more)), "still missing");
}

}  // namespace
}  // namespace requite
