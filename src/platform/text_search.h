// SPDX-License-Identifier: MIT
// The fast search that the text operations use: a pattern is prepared once, then found in many texts.
#pragma once

#include <string>
#include <string_view>

#include "platform/search_block.h"
#include "platform/text.h"

namespace requite {

/// A pattern for many searches. It is not changed by searching and may be shared.
class TextFinder {
 public:
  /// Takes a copy of the pattern.
  explicit TextFinder(std::string_view pattern, Compare compare = Compare::Text);

  /// Offset of the first occurrence at or after `from`, or npos, as with `Find` of text.h.
  /// The time is linear in the text, whatever text and pattern hold.
  [[nodiscard]] std::size_t Find(std::string_view text, std::size_t from = 0) const;
  [[nodiscard]] bool IsIn(std::string_view text) const { return Find(text) != std::string_view::npos; }

  /// The pattern as it was given.
  [[nodiscard]] const std::string& Pattern() const { return pattern_; }

 private:
  std::string pattern_;
  Compare compare_;
  SearchAnchors anchors_;
};

}  // namespace requite
