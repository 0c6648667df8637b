// SPDX-License-Identifier: MIT
// A line that addresses are picked out of: its front goes piece by piece, and each piece goes everywhere.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace requite {

/// The characters at which both halves of an address stop.
[[nodiscard]] bool IsStopCharacter(char c);

/// How often each text of some lengths stands before an "@"; the lengths are those of kContexts. Counts are
/// by hash: they may be too large, never too small.
class AtContexts {
 public:
  /// Takes the text's "@" in. The text must stay where it is as long as it is asked about.
  void Build(std::string_view text);
  void Clear() { built_ = false; }
  [[nodiscard]] bool Built() const { return built_; }
  /// Whether `piece`, which ends in its only "@", may stand more than once in what is left of the text.
  [[nodiscard]] bool MayRepeat(std::string_view piece) const;
  /// The "@" at this place of the text is gone.
  void Leave(std::string_view text, std::size_t at);

 private:
  static constexpr std::array<std::size_t, 11> kContexts = {1, 2, 3, 4, 5, 6, 7, 8, 12, 20, 32};

  [[nodiscard]] std::size_t SlotOf(std::string_view context, std::size_t table) const;
  template <class Act>
  void ForContexts(std::string_view text, std::size_t at, Act act);

  std::vector<std::uint8_t> counts_;  // one table a length, one behind the other
  std::size_t tableSize_ = 0;
  bool built_ = false;
};

class EmailTail {
 public:
  explicit EmailTail(std::string line) : text_(std::move(line)) {}

  [[nodiscard]] std::string_view Text() const { return std::string_view(text_).substr(begin_); }
  /// The offset of the first "@", or npos.
  [[nodiscard]] std::size_t FirstAt();
  /// Takes the first `count` characters away, and every other occurrence of them behind.
  /// Returns the characters.
  std::string TakeEverywhere(std::size_t count);
  /// Takes the first `count` characters away, here only.
  void TakeFront(std::size_t count);
  /// The offset of the first stop character, or the length of the text.
  [[nodiscard]] std::size_t FirstStop();

 private:
  [[nodiscard]] bool MayRepeat(std::string_view piece);

  std::string text_;
  std::size_t begin_ = 0;
  std::size_t at_ = 0;    // no "@" between begin_ and here
  std::size_t stop_ = 0;  // the same of stop characters
  std::size_t searched_ = 0;
  AtContexts contexts_;
};

}  // namespace requite
