// SPDX-License-Identifier: MIT
// From a line of a search engine's result page to the domain in it.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// Reads the lines of one result page in their order: a line without a suffix of its own is tested with
/// that of the line before.
class ResultLines {
 public:
  /// What the line holds of a domain of two labels, such as "example.com", or an empty text when the line is
  /// dropped. `seenDomains` are those kept so far, joined with no separator.
  /// A kept text can be empty itself; `kept` tells.
  [[nodiscard]] std::string DomainOf(std::string_view line, std::string_view seenDomains, bool& kept);

 private:
  std::string suffix_;
};

}  // namespace requite
