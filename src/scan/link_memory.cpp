// SPDX-License-Identifier: MIT
// Each link has one cell where it can be, so that a look-up reads one line of the processor's cache.
#include "scan/link_memory.h"

#include <cstring>
#include <utility>

namespace requite {

LinkVerdict LinkMemory::Recall(std::uint32_t place, HashedText value) const {
  if (cells_.empty()) return LinkVerdict::Unknown;
  const Cell& cell = cells_[CellOf(place, value.Hash)];
  const bool isSame = cell.Hash == value.Hash && cell.Place == place &&
                      std::string_view(cell.Text.data(), cell.Size) == value.Text;
  return isSame ? cell.Verdict : LinkVerdict::Unknown;
}

void LinkMemory::Remember(std::uint32_t place, HashedText value, LinkVerdict verdict) {
  static_assert(sizeof(Cell) == 64);
  if (value.Text.size() > kLongest) return;
  if (cells_.empty() || remembered_ > cells_.size() / 2) Grow();
  ++remembered_;
  Cell& cell = cells_[CellOf(place, value.Hash)];
  cell.Hash = value.Hash;
  cell.Place = place;
  cell.Verdict = verdict;
  cell.Size = static_cast<std::uint8_t>(value.Text.size());
  std::memcpy(cell.Text.data(), value.Text.data(), value.Text.size());
}

std::size_t LinkMemory::CellOf(std::uint32_t place, std::uint32_t hash) const {
  return (hash + place * 0x9E3779B1U) & (cells_.size() - 1);
}

void LinkMemory::Grow() {
  constexpr std::size_t kFewest = 64;
  constexpr std::size_t kMost = 4096;
  remembered_ = 0;
  if (cells_.size() >= kMost) return;
  const std::vector<Cell> before =
      std::exchange(cells_, std::vector<Cell>(cells_.empty() ? kFewest : 2 * cells_.size()));
  for (const Cell& cell : before) {
    if (cell.Verdict != LinkVerdict::Unknown) cells_[CellOf(cell.Place, cell.Hash)] = cell;
  }
}

}  // namespace requite
