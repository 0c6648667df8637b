// SPDX-License-Identifier: MIT
// The "@" of a long line by what stands before them, while pieces are taken out of the line.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace requite {

/// A text out of which stretches that end in "@" are taken. Nothing is moved: what is gone is marked, and its
/// two ends lead over it. So a stretch costs as much as it is long, wherever it stands.
class AtIndex {
 public:
  /// The text must outlive the index.
  explicit AtIndex(std::string_view text);

  [[nodiscard]] bool IsGone(std::size_t place) const { return gone_[place]; }
  /// The next place that is not gone.
  [[nodiscard]] std::size_t After(std::size_t place) const;
  /// The place before `place` that is not gone, or npos.
  [[nodiscard]] std::size_t Before(std::size_t place) const;

  /// Takes `context` and the "@" after it out wherever they stand from `begin` on. `context` holds no "@" and
  /// is not empty. Tells `taken` of each place, and then `joined` of each "@" that has a new neighbour.
  template <class Taken, class Joined>
  void TakeOut(std::size_t begin, std::string_view context, Taken&& taken, Joined&& joined) {
    FindMatches(begin, context);
    for (const std::uint32_t which : matches_) Unlink(which);
    for (const std::uint32_t which : matches_) {
      std::size_t first = ats_[which].Place + 1;
      for (std::size_t left = context.size() + 1; left > 0; --left) {
        first = Before(first);
        taken(first);
        gone_[first] = true;
      }
      Close(first, ats_[which].Place + 1);
    }
    for (const std::uint32_t which : matches_) {
      AddGrown(begin, ats_[which].Next);
      for (const std::uint32_t next : {ats_[which].Previous, ats_[which].Next}) {
        if (next == kNone) continue;
        const std::size_t place = ats_[next].Place;
        if (place >= begin && !gone_[place]) joined(place);
      }
    }
  }

 private:
  static constexpr std::array<std::size_t, 11> kLengths = {1, 2, 3, 4, 5, 6, 7, 8, 12, 20, 32};
  static constexpr std::uint32_t kNone = UINT32_MAX;
  struct At {
    std::uint32_t Place;
    std::uint32_t Previous;  ///< the numbers of its neighbours that are not gone
    std::uint32_t Next;
    std::uint8_t Known;  ///< so many characters before it are in the tables
  };
  struct Entry {
    std::uint32_t Hash;
    std::uint32_t Which;
    std::uint32_t Next;
  };
  struct Table {
    std::vector<std::uint32_t> Heads;  // by hash, a power of two; empty: not built
    std::vector<Entry> Entries;
  };

  void Close(std::size_t first, std::size_t end);
  void Unlink(std::uint32_t which);
  void FindMatches(std::size_t begin, std::string_view context);
  [[nodiscard]] bool Matches(std::size_t begin, std::uint32_t which, std::string_view context) const;
  /// The last characters before an "@", at most as many as the longest table needs.
  [[nodiscard]] std::string ContextOf(std::size_t begin, std::uint32_t which) const;
  void Build(std::size_t begin, std::size_t table);
  void AddGrown(std::size_t begin, std::uint32_t which);
  void Add(std::size_t table, std::string_view context, std::uint32_t which);

  std::string_view text_;
  std::vector<bool> gone_;
  std::vector<std::uint32_t> over_;  // at the ends of what is gone: the first place, or the one after it
  std::vector<At> ats_;
  std::array<Table, kLengths.size()> tables_;
  std::vector<std::uint32_t> matches_;
};

}  // namespace requite
