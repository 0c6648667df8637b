// SPDX-License-Identifier: MIT
// A cell is one line of the processor's cache. Most links are in their first cell; the second one is next to
// it.
#include "scan/link_memory.h"

#include <cstring>
#include <utility>

namespace requite {

LinkVerdict LinkMemory::Recall(std::uint32_t place, HashedText value) const {
  if (cells_.empty()) return LinkVerdict::Unknown;
  const std::size_t first = CellOf(place, value.Hash);
  for (const std::size_t at : {first, first ^ 1}) {
    if (cells_[at].Is(place, value)) return cells_[at].Verdict;
  }
  return LinkVerdict::Unknown;
}

void LinkMemory::Remember(std::uint32_t place, HashedText value, LinkVerdict verdict) {
  static_assert(sizeof(Cell) == 64);
  if (verdict == LinkVerdict::Unknown || value.Text.size() > kLongest) return;
  if (cells_.empty() || remembered_ > cells_.size() / 2) Grow();
  ++remembered_;
  Cell& cell = FreeCellFor(place, value.Hash);
  cell.Hash = value.Hash;
  cell.Place = place;
  cell.Verdict = verdict;
  cell.Size = static_cast<std::uint8_t>(value.Text.size());
  std::memcpy(cell.Text.data(), value.Text.data(), value.Text.size());
}

std::size_t LinkMemory::CellOf(std::uint32_t place, std::uint32_t hash) const {
  return (hash + place * 0x9E3779B1U) & (cells_.size() - 1);
}

/// The first cell of a link. What is in it moves to the second one.
LinkMemory::Cell& LinkMemory::FreeCellFor(std::uint32_t place, std::uint32_t hash) {
  const std::size_t first = CellOf(place, hash);
  if (cells_[first].Verdict != LinkVerdict::Unknown) cells_[first ^ 1] = cells_[first];
  return cells_[first];
}

void LinkMemory::Grow() {
  constexpr std::size_t kFewest = 64;
  constexpr std::size_t kMost = 4096;
  remembered_ = 0;
  if (cells_.size() >= kMost) return;
  const std::vector<Cell> before =
      std::exchange(cells_, std::vector<Cell>(cells_.empty() ? kFewest : 2 * cells_.size()));
  for (const Cell& cell : before) {
    if (cell.Verdict != LinkVerdict::Unknown) FreeCellFor(cell.Place, cell.Hash) = cell;
  }
}

}  // namespace requite
