// SPDX-License-Identifier: MIT
// What came of the links of a site. Pages of a site have many links in common, and to judge one again takes
// ten times as long as to remember it.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/hashed_text.h"

namespace requite {

/// What a link did, and what another link with the same value from the same place does too.
enum class LinkVerdict : std::uint8_t {
  Unknown,
  Dropped,  ///< it cannot be a page
  NotOurs,  ///< nothing to queue, and no link to the Main Site
};

/// A table of the last links, of at most 256 KiB. Each link has two cells where it can be; when both are in
/// use, the one that came first is forgotten.
class LinkMemory {
 public:
  /// Longer values are not remembered.
  static constexpr std::size_t kLongest = 54;

  void Clear() { cells_.clear(); }
  /// To be called a few links before Recall: between two pages the table leaves the processor's nearest
  /// cache, and to wait for a cell takes longer than everything else that Recall does.
  void Expect(std::uint32_t place, HashedText value) const {
    if (!cells_.empty()) __builtin_prefetch(&cells_[CellOf(place, value.Hash)]);
  }
  /// `place` is the number of what a relative link is relative to.
  [[nodiscard]] LinkVerdict Recall(std::uint32_t place, HashedText value) const;
  /// Not to be called for a value that Recall knows. An unknown verdict is not remembered.
  void Remember(std::uint32_t place, HashedText value, LinkVerdict verdict);

 private:
  struct alignas(64) Cell {
    std::uint32_t Hash = 0;
    std::uint32_t Place = 0;
    LinkVerdict Verdict = LinkVerdict::Unknown;
    std::uint8_t Size = 0;
    std::array<char, kLongest> Text{};

    [[nodiscard]] bool Is(std::uint32_t place, HashedText value) const {
      return Hash == value.Hash && Place == place && std::string_view(Text.data(), Size) == value.Text;
    }
  };

  [[nodiscard]] std::size_t CellOf(std::uint32_t place, std::uint32_t hash) const;
  [[nodiscard]] Cell& FreeCellFor(std::uint32_t place, std::uint32_t hash);
  void Grow();

  std::vector<Cell> cells_;     // a power of two
  std::size_t remembered_ = 0;  // since the table has this size
};

}  // namespace requite
