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

/// Where the texts of some lengths stand last before an "@". Each length is looked through once, when it is
/// first asked about.
class AtContexts {
 public:
  /// Whether the text in front of the "@" at this place of `text`, as much of it as is kept, stands before
  /// an "@" further behind as well. `context` is that text and holds no "@". The same `text` must be given
  /// until Clear.
  [[nodiscard]] bool StandsBehind(std::string_view text, std::size_t at, std::string_view context);
  void Clear();

 private:
  static constexpr std::array<std::size_t, 11> kLengths = {1, 2, 3, 4, 5, 6, 7, 8, 12, 20, 32};
  struct Entry {
    std::uint32_t Mark = 0;    ///< of the context; 0: free
    std::uint32_t LastAt = 0;  ///< the last "@" behind it
  };
  using Table = std::vector<Entry>;  // by hash, a power of two

  static void Build(Table& table, std::string_view text, std::size_t length);
  /// The entry of a context, or the free one where it belongs.
  [[nodiscard]] static Entry& EntryOf(Table& table, std::uint64_t hash);

  std::array<Table, kLengths.size()> tables_;
};

/// Where each run of eight characters of a text stands last; runs that share a place count as one.
class LastRuns {
 public:
  /// Whether the `count` characters at `begin` may stand further behind as well. The same `text` must be
  /// given until Clear, and `count` must be at least kRun.
  [[nodiscard]] bool MayStandBehind(std::string_view text, std::size_t begin, std::size_t count);
  void Clear() { lastAt_ = {}; }

  static constexpr std::size_t kRun = 8;

 private:
  std::vector<std::uint32_t> lastAt_;  // by hash, a power of two
};

class EmailTail {
 public:
  explicit EmailTail(std::string line) : text_(std::move(line)), lastDot_(text_.rfind('.')) {}

  [[nodiscard]] std::string_view Text() const { return std::string_view(text_).substr(begin_); }
  /// The offset of the first "@", or npos.
  [[nodiscard]] std::size_t FirstAt();
  /// Takes the first `count` characters away, and every other occurrence of them behind.
  /// Returns the characters.
  std::string TakeEverywhere(std::size_t count);
  /// Takes the first `count` characters away, here only.
  void TakeFront(std::size_t count) { begin_ += count; }
  [[nodiscard]] bool HasDot() const { return lastDot_ != std::string::npos && lastDot_ >= begin_; }
  /// The offset of the first stop character, or the length of the text.
  [[nodiscard]] std::size_t FirstStop();

 private:
  [[nodiscard]] bool MayStandBehind(std::string_view piece);

  std::string text_;
  std::size_t begin_ = 0;
  std::size_t at_ = 0;    // no "@" between begin_ and here
  std::size_t stop_ = 0;  // the same of stop characters
  std::size_t searched_ = 0;
  AtContexts contexts_;
  LastRuns runs_;
  std::size_t lastDot_ = std::string::npos;  // place of the last full stop in text_
};

}  // namespace requite
