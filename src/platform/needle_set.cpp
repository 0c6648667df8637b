// SPDX-License-Identifier: MIT
// The bit of each byte in a set of letters.
#include "platform/needle_set.h"

#include <array>

#include "platform/fold_table.h"

namespace requite {
namespace {

/// Letters and digits have a bit each, and so have the signs that URLs are made of; the other bytes
/// share the last three bits.
constexpr std::array<std::uint64_t, 256> MakeLetterBits() {
  constexpr std::string_view kOwnBit = "abcdefghijklmnopqrstuvwxyz0123456789/:.-_?=&#%@~+,;\"'<>() !$*";
  static_assert(kOwnBit.size() <= 61);
  std::array<std::uint64_t, 256> bits{};
  for (std::size_t i = 0; i < bits.size(); ++i) {
    const unsigned char folded = kFoldTable[i];
    const std::size_t own = kOwnBit.find(static_cast<char>(folded));
    const std::size_t shared = folded >= 0x80 ? 63u : folded < 0x20 ? 62u : 61u;
    bits[i] = std::uint64_t{1} << (own != std::string_view::npos ? own : shared);
  }
  return bits;
}

constexpr std::array<std::uint64_t, 256> kLetterBits = MakeLetterBits();

}  // namespace

LetterSet LettersOf(std::string_view text) {
  LetterSet letters;
  for (const char c : text) letters.Bits |= kLetterBits[static_cast<unsigned char>(c)];
  return letters;
}

}  // namespace requite
