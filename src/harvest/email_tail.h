// SPDX-License-Identifier: MIT
// The rest of a line while addresses are read from its front; each piece read is removed everywhere in
// it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "harvest/address_ats.h"
#include "harvest/at_index.h"

namespace requite {

/// The last place of each run of eight characters in a text. Runs that share a slot count as one.
class LastRuns {
 public:
  static constexpr std::size_t kRun = 8;

  explicit LastRuns(std::string_view text);
  /// Whether a piece of at least kRun characters may occur at `begin` or later.
  [[nodiscard]] bool MayStandFrom(std::size_t begin, std::string_view piece) const;

 private:
  [[nodiscard]] std::size_t SlotOf(const char* run) const;

  std::vector<std::uint32_t> lastAt_;  // by hash, a power of two
};

class EmailTail {
 public:
  explicit EmailTail(std::string line) { Begin(std::move(line)); }

  [[nodiscard]] std::size_t Length() const { return length_; }
  /// The first characters, at most `count`.
  [[nodiscard]] std::string Front(std::size_t count) const;
  /// The offset of the first "@", or npos.
  [[nodiscard]] std::size_t FirstAt();
  /// The offset of the first stop character, or the length.
  [[nodiscard]] std::size_t FirstStop();
  [[nodiscard]] bool HasDot();
  /// The least number of characters that are left when the text becomes the key of a website: those that
  /// neither cleaning nor the removal of "www." touches.
  [[nodiscard]] std::size_t Staying() const { return staying_; }
  /// Whether HoldsOneAddress may be called: only after much of the line was searched repeatedly.
  [[nodiscard]] bool IsIndexed() const { return index_.has_value(); }
  /// Whether the cleaned left half, an "@", and the whole cleaned text hold exactly one address. The text
  /// must hold no stop character except at its end, and what was removed last must have ended in an "@".
  [[nodiscard]] bool HoldsOneAddress(std::string_view left);
  /// Removes the first `count` characters, here only, and returns them.
  std::string TakeFront(std::size_t count);
  /// Removes the first `count` characters and every other occurrence of them, and returns them. They must
  /// hold no "@" except at their end.
  std::string TakeEverywhere(std::size_t count);

 private:
  /// The first character of a kind, and how many characters come before it.
  struct Mark {
    std::size_t Place = 0;
    std::size_t Offset = 0;
  };

  void Begin(std::string text);
  [[nodiscard]] bool IsGone(std::size_t place) const { return index_ && index_->IsGone(place); }
  [[nodiscard]] std::size_t After(std::size_t place) const {
    return index_ ? index_->After(place) : place + 1;
  }
  template <class Test>
  std::size_t Find(Mark& mark, Test&& test);
  void Forget(std::size_t place);
  [[nodiscard]] bool MayStandFurtherOn(const std::string& piece);
  void TakeOutOfIndex(std::string_view context);
  void TakeOutOfPlainText(const std::string& piece);

  std::string text_;
  std::size_t begin_ = 0;
  std::size_t length_ = 0;
  std::size_t staying_ = 0;
  Mark at_;
  Mark stop_;
  std::size_t lastDot_ = std::string::npos;
  std::size_t searched_ = 0;
  bool moved_ = false;  // something was removed from the middle of text_
  std::optional<AtIndex> index_;
  std::optional<AddressAts> addresses_;  // of index_
  std::optional<LastRuns> runs_;
};

}  // namespace requite
