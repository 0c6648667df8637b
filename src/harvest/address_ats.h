// SPDX-License-Identifier: MIT
// Counts the addresses in the rest of a line without reading the rest again.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string_view>

#include "harvest/at_index.h"

namespace requite {

/// The "@" of a text around which the pattern of an address matches, kept up to date while pieces are taken
/// out of the text. The text is seen cleaned, as a right half is.
class AddressAts {
 public:
  /// Both must outlive this object.
  AddressAts(std::string_view text, const AtIndex& index, std::size_t begin);

  /// Looks at the "@" again, after something next to it was taken out. The time is that of reading on to the
  /// next character that is in no address.
  void Look(std::size_t at);
  /// The "@" is taken out.
  void Forget(std::size_t at) { ends_.erase(at); }
  /// Whether exactly one address stands in the cleaned left half, an "@", and all that is left of the text
  /// from `begin` on. In front of `begin` there is an "@".
  [[nodiscard]] bool HoldOne(std::string_view left, std::size_t begin);

 private:
  /// Where a match ends whose part after the "@" begins at `place`: the place of the next "@", or npos if it
  /// does not reach that far. Nothing where there is no match.
  [[nodiscard]] std::optional<std::size_t> EndOfMatch(std::size_t place) const;
  [[nodiscard]] bool FollowsName(std::size_t at) const;

  std::string_view text_;
  const AtIndex& index_;
  std::map<std::size_t, std::size_t> ends_;  // by the place of the "@"
};

}  // namespace requite
