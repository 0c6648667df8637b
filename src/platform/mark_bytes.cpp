// SPDX-License-Identifier: MIT
// The rows of bytes, and the search block of 32 places.
#include "platform/mark_bytes.h"

#include "platform/fold_table.h"

#ifdef __x86_64__
#include <immintrin.h>
#endif

namespace requite {

void MarkBytes::Add(std::string_view pattern, std::uint8_t bit) {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    for (std::size_t byte = 0; byte < rows_[i].size(); ++byte) {
      const bool fits =
          i >= pattern.size() || kFoldTable[byte] == kFoldTable[static_cast<unsigned char>(pattern[i])];
      if (!fits) continue;
      for (std::uint8_t* row : {&rows_[i][byte], &low_[i][byte % 16], &high_[i][byte / 16]}) {
        *row = static_cast<std::uint8_t>(*row | bit);
      }
    }
  }
}

std::size_t MarkBytes::CollectPlainly(const char* text, std::size_t from, std::size_t end,
                                      Places& places) const {
  for (; from < end && places.Room() > 0; ++from) {
    if (At(text + from) != 0) places.Add(from);
  }
  return from;
}

#ifdef __x86_64__
#define REQUITE_WIDE __attribute__((target("avx2")))

/// 32 places at once.
struct WideCollect {
  static constexpr std::size_t kPlaces = 32;

  REQUITE_WIDE static std::size_t Collect(const MarkBytes& marks, const char* text, std::size_t from,
                                          std::size_t end, MarkBytes::Places& places) {
    const WideCollect rows[] = {{marks, 0}, {marks, 1}, {marks, 2}};
    for (; end - from >= kPlaces; from += kPlaces) {
      if (places.Room() < kPlaces) return from;
      __m256i bits = _mm256_set1_epi8(-1);
      for (std::size_t i = 0; i < 3; ++i) rows[i].Keep(bits, text + from + i);
      const __m256i none = _mm256_cmpeq_epi8(bits, _mm256_setzero_si256());
      auto found = ~static_cast<std::uint32_t>(_mm256_movemask_epi8(none));
      for (; found != 0; found &= found - 1)
        places.Add(from + static_cast<std::size_t>(__builtin_ctz(found)));
    }
    return marks.CollectPlainly(text, from, end, places);
  }

 private:
  REQUITE_WIDE WideCollect(const MarkBytes& marks, std::size_t i)
      : low_(_mm256_broadcastsi128_si256(Load(marks.low_[i]))),
        high_(_mm256_broadcastsi128_si256(Load(marks.high_[i]))) {}

  static __m128i Load(const std::array<std::uint8_t, 16>& row) {
    return _mm_load_si128(reinterpret_cast<const __m128i*>(row.data()));
  }
  /// Keeps the bits that the rows of the bytes have too.
  REQUITE_WIDE void Keep(__m256i& bits, const char* at) const {
    const __m256i half = _mm256_set1_epi8(0x0F);
    const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
    const __m256i highHalves = _mm256_and_si256(_mm256_srli_epi16(bytes, 4), half);
    bits = _mm256_and_si256(bits, _mm256_shuffle_epi8(low_, _mm256_and_si256(bytes, half)));
    bits = _mm256_and_si256(bits, _mm256_shuffle_epi8(high_, highHalves));
  }

  __m256i low_;
  __m256i high_;
};

std::size_t MarkBytes::Collect(const char* text, std::size_t from, std::size_t end, Places& places) const {
  static const bool isWide = __builtin_cpu_supports("avx2") != 0;
  return isWide ? WideCollect::Collect(*this, text, from, end, places)
                : CollectPlainly(text, from, end, places);
}
#else
std::size_t MarkBytes::Collect(const char* text, std::size_t from, std::size_t end, Places& places) const {
  return CollectPlainly(text, from, end, places);
}
#endif

}  // namespace requite
