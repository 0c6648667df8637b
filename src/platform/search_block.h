// SPDX-License-Identifier: MIT
// Looks at several places of a text at once: where could a pattern start, going by two of its bytes?
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace requite {

/// The two bytes of a pattern that a text is scanned for before anything is compared. A byte fits
/// where `(byte | Case) == Value`; a byte that fits is the wanted one in either case, or (for Y with
/// diaeresis, whose two cases are far apart) a false match, so the pattern is always
/// compared as well.
struct SearchAnchors {
  struct Anchor {
    std::size_t Offset = 0;
    unsigned char Case = 0;
    unsigned char Value = 0;

    [[nodiscard]] bool Fits(const char* start) const {
      return (static_cast<unsigned char>(start[Offset]) | Case) == Value;
    }
  };
  Anchor First;
  Anchor Second;

  [[nodiscard]] bool Fit(const char* start) const { return First.Fits(start) && Second.Fits(start); }
};

/// Eight places at once in a plain 64-bit word, on any machine.
class WordBlock {
 public:
  static constexpr std::size_t kPlaces = 8;

  explicit WordBlock(const SearchAnchors& anchors) : first_(anchors.First), second_(anchors.Second) {}

  /// Bit i is set where both anchors fit a pattern that starts at `start + i`.
  [[nodiscard]] std::uint64_t Fits(const char* start) const {
    const std::uint64_t fit = first_.Fits(start) & second_.Fits(start);
    return ((fit >> 7) * 0x0102040810204080U) >> 56;  // gathers the top bit of each byte
  }

 private:
  struct Wide {
    explicit Wide(const SearchAnchors::Anchor& anchor)
        : offset(anchor.Offset), upperBits(kEachByte * anchor.Case), value(kEachByte * anchor.Value) {}

    /// The top bit of each byte that fits.
    [[nodiscard]] std::uint64_t Fits(const char* start) const {
      constexpr std::uint64_t kLowBits = kEachByte * 0x7F;
      std::uint64_t bytes = 0;
      std::memcpy(&bytes, start + offset, sizeof bytes);
      if constexpr (std::endian::native == std::endian::big) bytes = __builtin_bswap64(bytes);
      const std::uint64_t differing = (bytes | upperBits) ^ value;
      return ~(((differing & kLowBits) + kLowBits) | differing | kLowBits);
    }

    static constexpr std::uint64_t kEachByte = 0x0101010101010101U;
    std::size_t offset;
    std::uint64_t upperBits;
    std::uint64_t value;
  };

  Wide first_;
  Wide second_;
};

#ifdef __SSE2__
/// Sixteen places at once.
class Sse2Block {
 public:
  static constexpr std::size_t kPlaces = 16;

  explicit Sse2Block(const SearchAnchors& anchors) : first_(anchors.First), second_(anchors.Second) {}

  /// Bit i is set where both anchors fit a pattern that starts at `start + i`.
  [[nodiscard]] std::uint64_t Fits(const char* start) const {
    const __m128i fit = _mm_and_si128(first_.Fits(start), second_.Fits(start));
    return static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(fit)));
  }

 private:
  struct Wide {
    explicit Wide(const SearchAnchors::Anchor& anchor)
        : offset(anchor.Offset),
          upperBits(_mm_set1_epi8(static_cast<char>(anchor.Case))),
          value(_mm_set1_epi8(static_cast<char>(anchor.Value))) {}

    [[nodiscard]] __m128i Fits(const char* start) const {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(start + offset));
      return _mm_cmpeq_epi8(_mm_or_si128(bytes, upperBits), value);
    }

    std::size_t offset;
    __m128i upperBits;
    __m128i value;
  };

  Wide first_;
  Wide second_;
};

using FastBlock = Sse2Block;
#else
using FastBlock = WordBlock;
#endif

/// The answer of a block for 64 places.
template <class Block>
[[nodiscard]] std::uint64_t FitsOf64(const Block& block, const char* start) {
  std::uint64_t fits = 0;
  for (std::size_t i = 0; i < 64; i += Block::kPlaces) fits |= block.Fits(start + i) << i;
  return fits;
}

}  // namespace requite
