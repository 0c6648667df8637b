// SPDX-License-Identifier: MIT
// Finds the domain in a line of a search engine's result page.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace requite {

/// Reads the lines of one result page in order: a line without a suffix of its own is tested with the
/// suffix of the line before.
class ResultLines {
 public:
  /// The two-label domain in the line, such as "example.com", or nothing when the line is dropped.
  /// `seenDomains` holds those kept so far, joined without a separator.
  [[nodiscard]] std::optional<std::string> DomainOf(std::string_view line, std::string_view seenDomains);

 private:
  std::string suffix_;
};

}  // namespace requite
