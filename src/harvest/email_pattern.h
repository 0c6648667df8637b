// SPDX-License-Identifier: MIT
// What counts as an e-mail address.
#pragma once

#include <memory>
#include <string_view>

namespace re2 {
class RE2;
}

namespace requite {

/// The pattern of an address, compiled once.
class EmailPattern {
 public:
  EmailPattern();
  ~EmailPattern();

  /// Whether the text holds exactly one address. Other text around it does not matter.
  [[nodiscard]] bool IsValidEmail(std::string_view text) const;

 private:
  std::unique_ptr<const re2::RE2> pattern_;
};

}  // namespace requite
