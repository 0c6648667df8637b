// SPDX-License-Identifier: MIT
// The pages that were queued on a site. The table is never emptied between sites, only its count of used
// slots is set to 0. So an entry of an earlier site counts as seen again once the count reaches its slot.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace requite {

class SeenPages {
 public:
  static constexpr std::int32_t kSlots = 100000;  ///< indices 0 to 99999

  /// Stores a url in a slot and replaces what was there. Throws Subscript outside the table.
  void Store(std::int32_t index, const std::string& url);
  /// Whether a slot from 0 to `last` holds the url, which must be in lower case; letter case does not count.
  /// Never true for an empty url.
  [[nodiscard]] bool HasUpTo(std::int32_t last, const std::string& lowerUrl) const;
  /// No slot holds a longer url, in bytes. Replaced urls may still count.
  [[nodiscard]] std::size_t LongestUrl() const { return longest_; }

 private:
  std::size_t longest_ = 0;
  std::vector<std::string> slots_;  // grows to the highest slot stored so far
  std::unordered_map<std::string, std::vector<std::int32_t>> slotsOf_;  // by lower-case url, ascending
};

}  // namespace requite
