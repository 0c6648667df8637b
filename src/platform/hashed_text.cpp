// SPDX-License-Identifier: MIT
// Sixteen bytes at a time are multiplied into the hash. The last step reads bytes again rather than one by
// one.
#include "platform/hashed_text.h"

#include <cstring>
#include <random>

namespace requite {
namespace {

__extension__ using Product = unsigned __int128;

constexpr std::uint64_t kOdd = 0x9E3779B97F4A7C15U;

std::uint64_t Seed() {
  static const std::uint64_t seed = [] {
    std::random_device random;
    return std::uint64_t{random()} << 32U | random();
  }();
  return seed;
}

std::uint64_t EightBytes(const char* at) {
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, at, sizeof bytes);
  return bytes;
}

std::uint64_t Mix(std::uint64_t a, std::uint64_t b) {
  const Product product = Product{a} * b;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64U);
}

}  // namespace

std::uint32_t HashOf(std::string_view text) {
  const std::size_t size = text.size();
  const char* at = text.data();
  const char* const end = at + size;
  std::uint64_t hash = Seed() ^ (kOdd * (size + 1));
  for (; end - at > 16; at += 16) hash = Mix(EightBytes(at) ^ kOdd, EightBytes(at + 8) ^ hash);
  if (size >= 8) {
    const char* const first = size >= 16 ? end - 16 : at;
    hash = Mix(EightBytes(first) ^ kOdd, EightBytes(end - 8) ^ hash);
  } else {
    std::uint64_t bytes = 0;
    for (const char c : text) bytes = bytes << 8U | static_cast<unsigned char>(c);
    hash = Mix(bytes ^ kOdd, hash);
  }
  return static_cast<std::uint32_t>(hash ^ hash >> 32U);
}

}  // namespace requite
