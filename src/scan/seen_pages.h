// SPDX-License-Identifier: MIT
// Every page queued on a site. The table is never emptied between sites: only the count of used
// slots goes back, so what stood in a slot before can count as seen again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace requite {

class SeenPages {
 public:
  static constexpr std::int32_t kSlots = 100000;  ///< indices 0 to 99999

  /// Stores into a slot, whatever stood there. Throws Subscript outside the table.
  void Store(std::int32_t index, const std::string& url);
  /// Whether any slot from 0 to `last` holds the url, given in lower case: equal length, text compare.
  /// An empty url is held by nothing.
  [[nodiscard]] bool HasUpTo(std::int32_t last, const std::string& lowerUrl) const;
  /// No slot holds a longer url, in bytes. Those stored over may still count.
  [[nodiscard]] std::size_t LongestUrl() const { return longest_; }

 private:
  std::size_t longest_ = 0;
  std::vector<std::string> slots_;  // grows to the highest slot stored so far
  std::unordered_map<std::string, std::vector<std::int32_t>> slotsOf_;  // by lower-case url, ascending
};

}  // namespace requite
