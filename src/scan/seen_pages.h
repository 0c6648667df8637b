// SPDX-License-Identifier: MIT
// The pages that were queued on a site. The table is never emptied between sites, only its count of used
// slots is set to 0. So an entry of an earlier site counts as seen again once the count reaches its slot.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/text_index.h"

namespace requite {

/// Urls are in lower case here: letter case does not count.
class SeenPages {
 public:
  static constexpr std::int32_t kSlots = 100000;  ///< indices 0 to 99999

  /// Stores a url in a slot and replaces what was there. Throws Subscript outside the table.
  void Store(std::int32_t index, HashedText lowerUrl);
  /// Whether a slot from 0 to `last` holds the url. Never true for an empty url.
  [[nodiscard]] bool HasUpTo(std::int32_t last, HashedText lowerUrl) const;
  /// No slot holds a longer url, in bytes. Replaced urls may still count.
  [[nodiscard]] std::size_t LongestUrl() const { return urls_.Longest(); }

 private:
  struct Slot {
    std::uint32_t Url = TextIndex::kNone;
    std::int32_t Next = kEnd;  ///< the next higher slot with the same url
  };
  /// Slots that hold the same url are a list, whose first one is the value of the url in the index. As a new
  /// url has the value 0, that value is one more than the slot.
  static constexpr std::int32_t kEnd = -1;

  void Empty(std::int32_t index);

  std::vector<Slot> slots_;  // grows to the highest slot stored so far
  TextIndex urls_;
};

}  // namespace requite
