// SPDX-License-Identifier: MIT
// Everything but the link and its page that the verdict of a link depends on.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "scan/scan_context.h"

namespace requite {

/// A verdict of a link that was neither queued nor recorded holds until one of these changes. That a page was
/// queued on the site before stays true as long as the site is the same.
class LinkCircumstances {
 public:
  /// Whether anything has changed since the last call. The first call says so too.
  [[nodiscard]] bool HaveChanged(const ScanContext& scan);

 private:
  /// The site, and the versions of the lists that the tests of a link read.
  using Numbers = std::array<std::uint64_t, 6>;
  [[nodiscard]] static Numbers NumbersOf(const ScanContext& scan);

  Numbers numbers_{};
  std::string mainSiteKey_;
  std::vector<std::string> fileTypes_;
  std::string usesFileTypes_;
  std::string secure_;
};

}  // namespace requite
