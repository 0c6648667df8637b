// SPDX-License-Identifier: MIT
// What became of a site between two scans, and how often each change comes.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "history/site_record.h"

namespace requite {

/// In the order in which they are told.
enum class ChangeKind : std::uint8_t {
  Lost,          ///< the links are gone
  Fewer,         ///< some links are gone
  Unreachable,   ///< linked back when it was last reached, and cannot be reached
  FoundAgain,    ///< links that were lost, or that could not be looked for
  New,           ///< the first links of a site that never linked back
  Moved,         ///< as many links, on other pages
  StillMissing,  ///< fewer links than expected, or none, as before
  Added,         ///< scanned for the first time
  Removed,       ///< no longer in the project
  Same,          ///< links back as before
};
inline constexpr std::size_t kChangeKinds = 10;

/// Such as "found again".
[[nodiscard]] std::string_view WordsOf(ChangeKind kind);

/// What became of a site. Without an older record it is `Added`.
[[nodiscard]] ChangeKind ChangeBetween(const std::optional<SiteRecord>& before, const SiteRecord& now);

class ChangeCounts {
 public:
  void Count(ChangeKind kind) { ++counts_.at(static_cast<std::size_t>(kind)); }
  [[nodiscard]] int Of(ChangeKind kind) const { return counts_.at(static_cast<std::size_t>(kind)); }
  /// Whether links that were there are gone. A site that cannot be reached may still have its links.
  [[nodiscard]] bool AnyLost() const { return Of(ChangeKind::Lost) + Of(ChangeKind::Fewer) > 0; }
  /// Such as "2 lost, 1 found again"; "nothing changed" when there are only sites that are the same.
  [[nodiscard]] std::string Words() const;
  /// The same for readers who see no table with it: "2 links lost, 1 found again".
  [[nodiscard]] std::string Headline() const;

 private:
  std::array<int, kChangeKinds> counts_{};
};

}  // namespace requite
