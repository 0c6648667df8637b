// SPDX-License-Identifier: MIT
// Many patterns against one short text: the letters of the text alone rule out most of them.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/text_search.h"

namespace requite {

/// Which letters, and which pairs of neighbouring letters, occur in a text, in any case. Several rare
/// letters share a bit, and many pairs do.
struct LetterSet {
  std::uint64_t Bits = 0;
  std::uint64_t Pairs = 0;

  /// False when the text of this set cannot hold a pattern with the other set.
  [[nodiscard]] bool Covers(LetterSet pattern) const {
    return ((pattern.Bits & ~Bits) | (pattern.Pairs & ~Pairs)) == 0;
  }
};

/// The letters of a text. Compute it once for each text, then ask every needle.
[[nodiscard]] LetterSet LettersOf(std::string_view text);

/// A pattern that is looked for in many short texts, ignoring letter case.
class Needle {
 public:
  explicit Needle(std::string_view pattern) : finder_(pattern), letters_(LettersOf(pattern)) {}

  /// Whether the text holds the pattern. `letters` are those of this text, or more.
  [[nodiscard]] bool IsIn(std::string_view text, LetterSet letters) const {
    return letters.Covers(letters_) && finder_.IsIn(text);
  }

  /// The pattern as it was given.
  [[nodiscard]] const std::string& Pattern() const { return finder_.Pattern(); }

 private:
  TextFinder finder_;
  LetterSet letters_;
};

}  // namespace requite
