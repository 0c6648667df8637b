// SPDX-License-Identifier: MIT
// Finds each "@" of a long line by the text before it, while pieces are removed from the line.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace requite {

/// A text from which stretches that end in "@" are removed. Nothing moves: removed characters are marked,
/// and both ends of a removed stretch lead across it. So removing a stretch costs its length, wherever it
/// is.
class AtIndex {
 public:
  /// The text must outlive the index.
  explicit AtIndex(std::string_view text);

  [[nodiscard]] bool IsGone(std::size_t place) const { return gone_[place]; }
  /// The next place that has not been removed.
  [[nodiscard]] std::size_t After(std::size_t place) const;
  /// The place before `place` that has not been removed, or npos.
  [[nodiscard]] std::size_t Before(std::size_t place) const;

  /// Removes `context` and the "@" after it everywhere from `begin` on. `context` holds no "@" and is not
  /// empty. Calls `taken` for each removed place, then `joined` for each "@" that has a new neighbour.
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
    std::uint32_t Previous;  ///< numbers of the nearest neighbours not removed
    std::uint32_t Next;
    std::uint8_t Known;  ///< how many characters before it are in the tables
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
  /// The last characters before an "@", as many as the longest table uses.
  [[nodiscard]] std::string ContextOf(std::size_t begin, std::uint32_t which) const;
  void Build(std::size_t begin, std::size_t table);
  void AddGrown(std::size_t begin, std::uint32_t which);
  void Add(std::size_t table, std::string_view context, std::uint32_t which);

  std::string_view text_;
  std::vector<bool> gone_;
  std::vector<std::uint32_t> over_;  // at both ends of a removed stretch: the place at its other end
  std::vector<At> ats_;
  std::array<Table, kLengths.size()> tables_;
  std::vector<std::uint32_t> matches_;
};

}  // namespace requite
