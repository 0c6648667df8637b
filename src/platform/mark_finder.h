// SPDX-License-Identifier: MIT
// Finds several patterns in one pass over a text.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/mark_bytes.h"
#include "platform/text.h"

namespace requite {

/// Up to eight patterns, none empty, looked for without regard to letter case. Not changed by a search.
class MarkFinder {
 public:
  /// Only so many bytes of a pattern are compared, or patterns that repeat themselves could take quadratic
  /// time.
  static constexpr std::size_t kCompared = 32;

  explicit MarkFinder(std::vector<std::string> patterns) : patterns_(std::move(patterns)) {
    for (std::size_t i = 0; i < patterns_.size(); ++i) {
      patterns_[i].resize(std::min(patterns_[i].size(), kCompared));
      marks_.Add(patterns_[i], static_cast<std::uint8_t>(1U << i));
    }
  }

  /// Calls onFound(number of the pattern, its place) for each pattern that begins from `from` on but before
  /// `end`, place by place.
  template <class OnFound>
  void ForEach(std::string_view text, std::size_t from, std::size_t end, OnFound&& onFound) const {
    const std::size_t blocksEnd = std::min(end, text.size() - std::min<std::size_t>(text.size(), 2));
    for (MarkBytes::Places places; from < blocksEnd; places.Clear()) {
      from = marks_.Collect(text.data(), from, blocksEnd, places);
      for (const std::size_t at : places.All()) TellAt(text, at, marks_.At(text.data() + at), onFound);
    }
    for (; from < std::min(end, text.size()); ++from)
      TellAt(text, from, (1U << patterns_.size()) - 1, onFound);
  }

 private:
  template <class OnFound>
  void TellAt(std::string_view text, std::size_t at, unsigned bits, OnFound&& onFound) const {
    for (; bits != 0; bits &= bits - 1) {
      const auto i = static_cast<std::size_t>(std::countr_zero(bits));
      if (StartsWith(text.substr(at), patterns_[i], Compare::Text)) onFound(i, at);
    }
  }

  std::vector<std::string> patterns_;
  MarkBytes marks_;
};

}  // namespace requite
