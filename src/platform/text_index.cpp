// SPDX-License-Identifier: MIT
// Open addressing: a text is in the first free cell from the one that its hash names. Removing a text moves
// later ones back, so no cell between a text and its first cell is ever empty.
#include "platform/text_index.h"

#include <algorithm>
#include <utility>

namespace requite {

std::uint32_t TextIndex::Find(HashedText text) const {
  if (cells_.empty()) return kNone;
  for (std::size_t at = Home(text.Hash); cells_[at].Number != kNone; at = Next(at)) {
    if (cells_[at].Hash == text.Hash && entries_[cells_[at].Number].Text == text.Text) {
      return cells_[at].Number;
    }
  }
  return kNone;
}

std::uint32_t TextIndex::Add(HashedText text) {
  const std::uint32_t known = Find(text);
  if (known != kNone) return known;
  if (2 * (entries_.size() - free_.size() + 1) > cells_.size()) Grow();
  auto number = static_cast<std::uint32_t>(entries_.size());
  if (free_.empty()) {
    entries_.emplace_back();
  } else {
    number = free_.back();
    free_.pop_back();
  }
  entries_[number] = {pool_.Keep(text.Text), text.Hash, 0};
  Put({text.Hash, number});
  longest_ = std::max(longest_, text.Text.size());
  return number;
}

void TextIndex::Remove(std::uint32_t number) {
  Entry& entry = entries_[number];
  std::size_t at = Home(entry.Hash);
  while (cells_[at].Number != number) at = Next(at);
  EmptyCell(at);
  pool_.Drop(entry.Text);
  entry = {};
  free_.push_back(number);
  if (pool_.IsWorthPacking()) PackTexts();
}

void TextIndex::Put(Cell cell) {
  std::size_t at = Home(cell.Hash);
  while (cells_[at].Number != kNone) at = Next(at);
  cells_[at] = cell;
}

void TextIndex::Grow() {
  constexpr std::size_t kFewest = 16;
  const std::vector<Cell> before =
      std::exchange(cells_, std::vector<Cell>(std::max(kFewest, 2 * cells_.size())));
  for (const Cell& cell : before) {
    if (cell.Number != kNone) Put(cell);
  }
}

/// A later text may move to the empty cell if that is not before its own first cell.
void TextIndex::EmptyCell(std::size_t cell) {
  const std::size_t mask = cells_.size() - 1;
  for (std::size_t at = Next(cell); cells_[at].Number != kNone; at = Next(at)) {
    const std::size_t distance = (at - Home(cells_[at].Hash)) & mask;
    if (distance < ((at - cell) & mask)) continue;
    cells_[cell] = cells_[at];
    cell = at;
  }
  cells_[cell] = {};
}

void TextIndex::PackTexts() {
  const TextPool::Pieces before = pool_.TakePieces();
  for (Entry& entry : entries_) {
    if (!entry.Text.empty()) entry.Text = pool_.KeepPacked(entry.Text);
  }
}

}  // namespace requite
