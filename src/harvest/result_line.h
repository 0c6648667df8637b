// SPDX-License-Identifier: MIT
// From a line of a search engine's result page to the domain in it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace requite {

/// Reads the lines of one result page in their order: a line without a suffix of its own is tested with
/// that of the line before.
class ResultLines {
 public:
  /// The domain of two labels in the line, such as "example.com", or nothing when the line is dropped.
  /// `seenDomains` are those kept so far, joined with no separator.
  [[nodiscard]] std::optional<std::string> DomainOf(std::string_view line, std::string_view seenDomains);

 private:
  std::string suffix_;
};

}  // namespace requite
