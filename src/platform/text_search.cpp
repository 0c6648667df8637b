// SPDX-License-Identifier: MIT
// Finding and replacing. Two rare bytes of the pattern are looked for many places at a time, and only
// where both fit is the pattern compared.
#include "platform/text_search.h"

#include <optional>
#include <vector>

#include "platform/fold_table.h"

namespace requite {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

/// How common each byte is in web pages, from 0 for rare; both cases of a letter count as one.
constexpr std::array<unsigned char, 256> MakeCommonness() {
  constexpr std::string_view kRareFirst = "z%7865:&94;q3()021\t\r#,k_xwv-byg\n.fumh=/dpo<>\"crilntase ";
  std::array<unsigned char, 256> commonness{};
  for (std::size_t i = 0; i < 256; ++i) {
    const std::size_t rank = kRareFirst.find(static_cast<char>(kFoldTable[i]));
    commonness[i] = static_cast<unsigned char>(rank == kNowhere ? 0 : rank + 1);
  }
  return commonness;
}

constexpr std::array<unsigned char, 256> MakeUpperTable() {
  std::array<unsigned char, 256> table{};
  for (std::size_t i = 0; i < 256; ++i) table[i] = static_cast<unsigned char>(i);
  for (std::size_t i = 0; i < 256; ++i) {
    if (kFoldTable[i] != i) table[kFoldTable[i]] = static_cast<unsigned char>(i);
  }
  return table;
}

constexpr std::array<unsigned char, 256> kCommonness = MakeCommonness();
constexpr std::array<unsigned char, 256> kUpperTable = MakeUpperTable();

template <Compare compare>
unsigned char Folded(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return compare == Compare::Text ? kFoldTable[byte] : byte;
}

SearchAnchors::Anchor AnchorAt(std::string_view pattern, std::size_t offset, Compare compare) {
  const auto byte = static_cast<unsigned char>(pattern[offset]);
  if (compare == Compare::Binary) return {offset, 0, byte};
  const unsigned lower = kFoldTable[byte];
  const unsigned upper = kUpperTable[lower];
  return {offset, static_cast<unsigned char>(lower ^ upper), static_cast<unsigned char>(lower | upper)};
}

/// The two rarest bytes of a pattern, of different kinds where it has two kinds. Of the second kind it is the
/// last one: of a blank line the CR and the LF far from it, as each line has a CR with an LF next to it.
SearchAnchors RarestAnchors(std::string_view pattern, Compare compare) {
  std::size_t first = 0;
  std::size_t second = kNowhere;
  const auto commonness = [&](std::size_t i) { return kCommonness[static_cast<unsigned char>(pattern[i])]; };
  for (std::size_t i = 1; i < pattern.size(); ++i) {
    if (commonness(i) < commonness(first)) {
      second = first;
      first = i;
    } else if (Folded<Compare::Text>(pattern[i]) != Folded<Compare::Text>(pattern[first]) &&
               (second == kNowhere || commonness(i) <= commonness(second))) {
      second = i;
    }
  }
  if (second == kNowhere) second = pattern.size() - 1;
  return {AnchorAt(pattern, first, compare), AnchorAt(pattern, second, compare)};
}

/// One search for a pattern that is not empty and not longer than the text from its start on.
template <Compare compare>
class Search {
 public:
  Search(std::string_view text, std::string_view pattern, const SearchAnchors& anchors)
      : text_(text.data()), pattern_(pattern), end_(text.size() - pattern.size() + 1), anchors_(anchors) {}

  std::size_t From(std::size_t from) {
    const FastBlock block(anchors_);
    std::size_t at = from;
    for (; end_ - at >= 64; at += 64) {
      if (const std::size_t found = FirstOf(at, FitsOf64(block, text_ + at)); found != kNowhere) return found;
      if (compared_ > kPatience + 16 * (at - from)) return FromByFallbacks(at + 64);
    }
    for (; end_ - at >= FastBlock::kPlaces; at += FastBlock::kPlaces) {
      if (const std::size_t found = FirstOf(at, block.Fits(text_ + at)); found != kNowhere) return found;
    }
    if (at < end_ && end_ - from >= FastBlock::kPlaces) {
      // The last few places, with some that were looked at already.
      at = end_ - FastBlock::kPlaces;
      return FirstOf(at, block.Fits(text_ + at));
    }
    for (; at < end_; ++at) {
      if (anchors_.Fit(text_ + at) && StandsAt(at)) return at;
    }
    return kNowhere;
  }

 private:
  static constexpr std::size_t kPatience = 4096;

  std::size_t FirstOf(std::size_t at, std::uint64_t fits) {
    for (; fits != 0; fits &= fits - 1) {
      const std::size_t place = at + static_cast<std::size_t>(std::countr_zero(fits));
      if (StandsAt(place)) return place;
    }
    return kNowhere;
  }

  bool StandsAt(std::size_t place) {
    std::size_t i = 0;
    while (i < pattern_.size() && Folded<compare>(text_[place + i]) == Folded<compare>(pattern_[i])) ++i;
    compared_ += i;
    return i == pattern_.size();
  }

  /// For text and pattern that repeat themselves, where comparing at each place would be quadratic:
  /// after a mismatch the pattern falls back to the longest start of it that the text still shows.
  std::size_t FromByFallbacks(std::size_t from) const {
    std::vector<std::size_t> fallback(pattern_.size() + 1, 0);
    const auto extend = [&](std::size_t matched, char c) {
      while (matched > 0 && Folded<compare>(pattern_[matched]) != Folded<compare>(c)) {
        matched = fallback[matched];
      }
      return Folded<compare>(pattern_[matched]) == Folded<compare>(c) ? matched + 1 : 0;
    };
    for (std::size_t i = 1; i < pattern_.size(); ++i) fallback[i + 1] = extend(fallback[i], pattern_[i]);
    std::size_t matched = 0;
    for (std::size_t i = from; i < end_ + pattern_.size() - 1; ++i) {
      matched = extend(matched, text_[i]);
      if (matched == pattern_.size()) return i + 1 - matched;
    }
    return kNowhere;
  }

  const char* text_;
  std::string_view pattern_;
  std::size_t end_;  ///< one past the last place where the pattern could start
  const SearchAnchors& anchors_;
  std::size_t compared_ = 0;  ///< bytes compared without a match
};

bool MayHold(std::string_view text, std::string_view pattern, std::size_t from) {
  return !text.empty() && from <= text.size() && pattern.size() <= text.size() - from;
}

/// `Find` once the anchors of the pattern are known.
std::size_t FindAnchored(std::string_view text, std::string_view pattern, Compare compare,
                         const SearchAnchors& anchors, std::size_t from) {
  if (!MayHold(text, pattern, from)) return kNowhere;
  if (pattern.empty()) return from;
  return compare == Compare::Text ? Search<Compare::Text>(text, pattern, anchors).From(from)
                                  : Search<Compare::Binary>(text, pattern, anchors).From(from);
}

/// The text with every occurrence replaced, or nothing when it occurs nowhere.
std::optional<std::string> Replaced(std::string_view text, std::string_view what, std::string_view with,
                                    Compare compare) {
  if (what.empty() || !MayHold(text, what, 0)) return std::nullopt;
  const SearchAnchors anchors = RarestAnchors(what, compare);
  std::size_t at = FindAnchored(text, what, compare, anchors, 0);
  if (at == kNowhere) return std::nullopt;
  std::string result;
  // Room for some growth; a text that grows more pays for it with another allocation.
  const bool grows = with.size() > what.size();
  result.reserve(grows ? text.size() + text.size() / 8 + 4 * with.size() : text.size());
  std::size_t start = 0;
  for (; at != kNowhere; at = FindAnchored(text, what, compare, anchors, start)) {
    result.append(text, start, at - start).append(with);
    start = at + what.size();
  }
  return result.append(text, start);
}

}  // namespace

TextFinder::TextFinder(std::string_view pattern, Compare compare) : pattern_(pattern), compare_(compare) {
  if (!pattern.empty()) anchors_ = RarestAnchors(pattern, compare);
}

std::size_t TextFinder::Find(std::string_view text, std::size_t from) const {
  return FindAnchored(text, pattern_, compare_, anchors_, from);
}

std::size_t Find(std::string_view text, std::string_view what, Compare compare, std::size_t from) {
  if (!MayHold(text, what, from)) return kNowhere;
  if (what.empty()) return from;
  // In a short text the choice of the rarest bytes costs more than it saves.
  const bool isShort = text.size() - from < 64;
  const SearchAnchors anchors =
      isShort ? SearchAnchors{AnchorAt(what, 0, compare), AnchorAt(what, what.size() - 1, compare)}
              : RarestAnchors(what, compare);
  return FindAnchored(text, what, compare, anchors, from);
}

bool Contains(std::string_view text, std::string_view what, Compare compare) {
  return Find(text, what, compare) != kNowhere;
}

std::string Replace(std::string_view text, std::string_view what, std::string_view with, Compare compare) {
  std::optional<std::string> replaced = Replaced(text, what, with, compare);
  return replaced ? *std::move(replaced) : std::string(text);
}

bool ReplaceIn(std::string& text, std::string_view what, std::string_view with, Compare compare) {
  std::optional<std::string> replaced = Replaced(text, what, with, compare);
  if (!replaced) return false;
  text = *std::move(replaced);
  return true;
}

}  // namespace requite
