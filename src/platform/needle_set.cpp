// SPDX-License-Identifier: MIT
// The bits of the letters and pairs of a text.
#include "platform/needle_set.h"

#include <array>

#include "platform/fold_table.h"

namespace requite {
namespace {

/// The number of each byte's bit. Letters, digits and the characters that URLs
/// are made of have a bit each; the other bytes share the last three.
constexpr std::array<unsigned char, 256> MakeLetterNumbers() {
  constexpr std::string_view kOwnBit = "abcdefghijklmnopqrstuvwxyz0123456789/:.-_?=&#%@~+,;\"'<>() !$*";
  static_assert(kOwnBit.size() <= 61);
  std::array<unsigned char, 256> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const unsigned char folded = kFoldTable[i];
    const std::size_t own = kOwnBit.find(static_cast<char>(folded));
    const std::size_t shared = folded >= 0x80 ? 63u : folded < 0x20 ? 62u : 61u;
    numbers[i] = static_cast<unsigned char>(own != std::string_view::npos ? own : shared);
  }
  return numbers;
}

constexpr std::array<unsigned char, 256> kLetterNumbers = MakeLetterNumbers();

}  // namespace

LetterSet LettersOf(std::string_view text) {
  LetterSet letters;
  if (text.empty()) return letters;
  unsigned last = kLetterNumbers[static_cast<unsigned char>(text.front())];
  letters.Bits = std::uint64_t{1} << last;
  for (const char c : text.substr(1)) {
    const unsigned number = kLetterNumbers[static_cast<unsigned char>(c)];
    letters.Bits |= std::uint64_t{1} << number;
    letters.Pairs |= std::uint64_t{1} << ((last * 5 + number) % 64);
    last = number;
  }
  return letters;
}

}  // namespace requite
