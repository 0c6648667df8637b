// SPDX-License-Identifier: MIT
// Counts the addresses in the rest of a line without reading it again each time.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string_view>

#include "harvest/at_index.h"

namespace requite {

/// The "@" characters of a text that have an address around them, kept up to date while pieces are
/// removed from the text. The text is seen cleaned, as a right half is.
class AddressAts {
 public:
  /// Both must outlive this object.
  AddressAts(std::string_view text, const AtIndex& index, std::size_t begin);

  /// Tests the "@" again after something next to it was removed. Takes as long as reading on to the next
  /// character that cannot be in an address.
  void Look(std::size_t at);
  /// The "@" was removed.
  void Forget(std::size_t at) { ends_.erase(at); }
  /// Whether the cleaned left half, an "@", and what is left of the text from `begin` on hold exactly one
  /// address. There must be an "@" just before `begin`.
  [[nodiscard]] bool HoldOne(std::string_view left, std::size_t begin);

 private:
  /// The end of the match whose part after the "@" begins at `place`: the place of the next "@", or npos
  /// if it does not reach that far. Nothing if there is no match.
  [[nodiscard]] std::optional<std::size_t> EndOfMatch(std::size_t place) const;
  [[nodiscard]] bool FollowsName(std::size_t at) const;

  std::string_view text_;
  const AtIndex& index_;
  std::map<std::size_t, std::size_t> ends_;  // by the place of the "@"
};

}  // namespace requite
