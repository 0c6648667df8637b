// SPDX-License-Identifier: MIT
// The hash of a text, made once for several look-ups.
#pragma once

#include <cstdint>
#include <string_view>

namespace requite {

/// Differs from run to run, so that no server can choose texts that all have the same hash.
[[nodiscard]] std::uint32_t HashOf(std::string_view text);

struct HashedText {
  explicit HashedText(std::string_view text) : Text(text), Hash(HashOf(text)) {}

  std::string_view Text;
  std::uint32_t Hash;
};

}  // namespace requite
