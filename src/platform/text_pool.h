// SPDX-License-Identifier: MIT
// Many short texts one after the other in large pieces of memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace requite {

/// A kept text does not move. Short texts share pieces of memory, which a dropped text does not give back;
/// the owner packs the pool for that. A long text has memory of its own.
class TextPool {
 public:
  using Pieces = std::vector<std::unique_ptr<char[]>>;

  [[nodiscard]] std::string_view Keep(std::string_view text);
  void Drop(std::string_view kept);
  /// Whether most of the memory holds dropped texts. Then take the pieces, keep each text again with
  /// KeepPacked, and let go of the pieces after that.
  [[nodiscard]] bool IsWorthPacking() const { return dropped_ > used_ / 2 && dropped_ > kPiece; }
  [[nodiscard]] Pieces TakePieces();
  [[nodiscard]] std::string_view KeepPacked(std::string_view kept);

 private:
  static constexpr std::size_t kPiece = std::size_t{64} * 1024;
  static constexpr std::size_t kShort = kPiece / 16;

  Pieces pieces_;
  std::size_t left_ = 0;     ///< bytes left in the last piece
  std::size_t used_ = 0;     ///< bytes of all short texts, dropped ones too
  std::size_t dropped_ = 0;  ///< bytes of the dropped short texts
  std::unordered_map<const char*, std::unique_ptr<char[]>> long_;
};

}  // namespace requite
