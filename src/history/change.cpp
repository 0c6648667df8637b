// SPDX-License-Identifier: MIT
// Compares two records of a site.
#include "history/change.h"

#include <algorithm>
#include <set>

namespace requite {
namespace {

constexpr std::array<std::string_view, kChangeKinds> kWords = {
    "lost",  "fewer",         "unreachable", "found again", "new",
    "moved", "still missing", "added",       "removed",     "same"};

std::set<std::string_view> PagesOf(const SiteRecord& site) {
  std::set<std::string_view> pages;
  for (const LinkRecord& link : site.Links) pages.insert(link.Page);
  return pages;
}

/// A page has gone and another has come.
bool Moved(const SiteRecord& before, const SiteRecord& now) {
  const std::set<std::string_view> old = PagesOf(before);
  const std::set<std::string_view> current = PagesOf(now);
  return !std::includes(current.begin(), current.end(), old.begin(), old.end()) &&
         !std::includes(old.begin(), old.end(), current.begin(), current.end());
}

ChangeKind WithoutLinks(const SiteRecord& before, const SiteRecord& now) {
  if (!FallsShort(now)) return ChangeKind::Same;  // none are expected
  if (now.Known > 0) return ChangeKind::Unreachable;
  return before.Known > 0 ? ChangeKind::Lost : ChangeKind::StillMissing;
}

ChangeKind WithLinks(const SiteRecord& before, const SiteRecord& now) {
  if (before.Known == 0) return before.Linked ? ChangeKind::FoundAgain : ChangeKind::New;
  if (now.Found < before.Known && FallsShort(now)) return ChangeKind::Fewer;
  if (before.State == SiteState::Unreachable) return ChangeKind::FoundAgain;
  if (now.Found > before.Found && FallsShort(before)) return ChangeKind::FoundAgain;
  if (Moved(before, now)) return ChangeKind::Moved;
  return FallsShort(now) ? ChangeKind::StillMissing : ChangeKind::Same;
}

}  // namespace

std::string_view WordsOf(ChangeKind kind) { return kWords.at(static_cast<std::size_t>(kind)); }

ChangeKind ChangeBetween(const std::optional<SiteRecord>& before, const SiteRecord& now) {
  if (!before) return ChangeKind::Added;
  return now.Found > 0 ? WithLinks(*before, now) : WithoutLinks(*before, now);
}

std::string ChangeCounts::Words() const {
  std::string words;
  for (std::size_t kind = 0; kind < static_cast<std::size_t>(ChangeKind::Same); ++kind) {
    if (counts_[kind] == 0) continue;
    if (!words.empty()) words += ", ";
    words.append(std::to_string(counts_[kind])).append(" ").append(kWords[kind]);
  }
  return words.empty() ? "nothing changed" : words;
}

std::string ChangeCounts::Headline() const {
  std::string words = Words();
  const int lost = Of(ChangeKind::Lost);
  // What is lost comes first.
  if (lost > 0) words.insert(words.find(' '), lost == 1 ? " link" : " links");
  return words;
}

}  // namespace requite
