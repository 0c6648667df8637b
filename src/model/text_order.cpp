// SPDX-License-Identifier: MIT
// Sorts by eight letters at a time, after the letters that all texts of a group share.
#include "model/text_order.h"

#include <algorithm>
#include <cstddef>
#include <span>

#include "platform/fold_table.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::size_t kLettersAtOnce = 8;

/// After so many rounds the few texts that are still equal are compared completely.
constexpr int kDeepest = 16;

/// A text with the letters that the current round compares.
struct Place {
  std::uint64_t Letters;
  std::string_view Text;
  std::uint32_t Number;
};

unsigned char Fold(char c) { return kFoldTable[static_cast<unsigned char>(c)]; }

std::size_t SharedBy(std::string_view a, std::string_view b, std::size_t from) {
  const std::size_t end = std::min(a.size(), b.size());
  while (from < end && Fold(a[from]) == Fold(b[from])) ++from;
  return from;
}

/// How many letters the texts share. The first `from` are known to be shared.
std::size_t SharedByAll(std::span<const Place> places, std::size_t from) {
  const std::string_view first = places.front().Text;
  std::size_t shared = first.size();
  for (const Place& place : places.subspan(1)) {
    shared = SharedBy(first.substr(0, shared), place.Text, from);
    if (shared == from) break;
  }
  return shared;
}

/// Letters after the end count as 0. A later round decides what that leaves undecided.
std::uint64_t LettersAt(std::string_view text, std::size_t from) {
  std::uint64_t letters = 0;
  for (std::size_t i = from; i < from + kLettersAtOnce; ++i) {
    letters = letters << 8 | (i < text.size() ? Fold(text[i]) : 0U);
  }
  return letters;
}

class Sorter {
 public:
  explicit Sorter(Direction direction) : descending_(direction == Direction::Descending) {}

  void Sort(std::span<Place> places, std::size_t from, int depth) const {
    if (places.size() < 2) return;
    if (depth == kDeepest) {
      return Order(places, [](const Place& a, const Place& b) { return CompareText(a.Text, b.Text) < 0; });
    }
    from = SharedByAll(places, from);
    for (Place& place : places) place.Letters = LettersAt(place.Text, from);
    Order(places, [](const Place& a, const Place& b) { return a.Letters < b.Letters; });
    for (std::size_t start = 0; start < places.size();) {
      std::size_t end = start + 1;
      while (end < places.size() && places[end].Letters == places[start].Letters) ++end;
      SortAlike(places.subspan(start, end - start), from + kLettersAtOnce, depth);
      start = end;
    }
  }

 private:
  template <class Before>
  void Order(std::span<Place> places, Before&& before) const {
    std::stable_sort(places.begin(), places.end(), [&](const Place& a, const Place& b) {
      return descending_ ? before(b, a) : before(a, b);
    });
  }

  /// Sorts texts that are equal up to `seen`. Those that end before it may have different lengths, or end in
  /// letters of 0.
  void SortAlike(std::span<Place> places, std::size_t seen, int depth) const {
    const auto isLonger = [seen](const Place& place) { return place.Text.size() > seen; };
    if (std::all_of(places.begin(), places.end(), isLonger)) return Sort(places, seen, depth + 1);
    const std::size_t size = places.front().Text.size();
    const auto hasThatSize = [size](const Place& place) { return place.Text.size() == size; };
    if (size <= seen && std::all_of(places.begin(), places.end(), hasThatSize)) return;
    Order(places, [](const Place& a, const Place& b) { return CompareText(a.Text, b.Text) < 0; });
  }

  bool descending_;
};

}  // namespace

std::vector<std::uint32_t> OrderOf(const std::vector<std::string_view>& texts, Direction direction) {
  std::vector<Place> places;
  places.reserve(texts.size());
  for (const std::string_view text : texts) {
    places.push_back({0, text, static_cast<std::uint32_t>(places.size())});
  }
  Sorter(direction).Sort(places, 0, 0);
  std::vector<std::uint32_t> order;
  order.reserve(places.size());
  for (const Place& place : places) order.push_back(place.Number);
  return order;
}

}  // namespace requite
