// SPDX-License-Identifier: MIT
// A number for each of many texts, found by hash.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/hashed_text.h"
#include "platform/text_pool.h"

namespace requite {

/// Texts are compared byte by byte. Takes about 50 bytes and the text itself for each.
class TextIndex {
 public:
  static constexpr std::uint32_t kNone = UINT32_MAX;

  /// The number of a text, or kNone.
  [[nodiscard]] std::uint32_t Find(HashedText text) const;
  /// The number of a text, which is added with the value 0 if it is missing. Numbers of removed texts are
  /// used again.
  [[nodiscard]] std::uint32_t Add(HashedText text);
  void Remove(std::uint32_t number);
  void Clear() { *this = {}; }

  /// What the owner notes of a text.
  [[nodiscard]] std::int32_t& Value(std::uint32_t number) { return entries_[number].Value; }
  [[nodiscard]] std::int32_t Value(std::uint32_t number) const { return entries_[number].Value; }
  /// The number of texts.
  [[nodiscard]] std::size_t Count() const { return entries_.size() - free_.size(); }
  /// No text is longer, in bytes. Removed ones may still count.
  [[nodiscard]] std::size_t Longest() const { return longest_; }

 private:
  struct Entry {
    std::string_view Text;
    std::uint32_t Hash = 0;
    std::int32_t Value = 0;
  };
  struct Cell {
    std::uint32_t Hash = 0;
    std::uint32_t Number = kNone;
  };

  [[nodiscard]] std::size_t Next(std::size_t cell) const { return (cell + 1) & (cells_.size() - 1); }
  [[nodiscard]] std::size_t Home(std::uint32_t hash) const { return hash & (cells_.size() - 1); }
  void Put(Cell cell);
  void Grow();
  void EmptyCell(std::size_t cell);
  void PackTexts();

  std::vector<Entry> entries_;       // by number
  std::vector<std::uint32_t> free_;  // numbers of removed texts
  std::vector<Cell> cells_;          // a power of two, at most half of them in use
  TextPool pool_;
  std::size_t longest_ = 0;
};

}  // namespace requite
