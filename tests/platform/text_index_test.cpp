// SPDX-License-Identifier: MIT
// The index of texts against a plain map, while texts come and go and the pool is packed.
#include "platform/text_index.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>

namespace requite::test {
namespace {

TEST(TextIndex, AgreesWithAPlainMap) {
  TextIndex index;
  std::map<std::string, std::int32_t> plain;
  std::mt19937 noise(3);
  for (int step = 0; step < 60000; ++step) {
    // Some are empty, some share a piece of memory with others, some are too long for that.
    const auto number = static_cast<std::size_t>(noise() % 300);
    const std::string text(number % 50 * (number % 7 == 0 ? 150 : 1), static_cast<char>('a' + number / 50));
    const HashedText key(text);
    const std::uint32_t found = index.Find(key);
    ASSERT_EQ(found != TextIndex::kNone, plain.contains(text)) << step;
    if (found != TextIndex::kNone) {
      ASSERT_EQ(index.Value(found), plain[text]) << step;
      ASSERT_EQ(index.Add(key), found) << step;
    }
    ASSERT_GE(index.Longest(), plain.contains(text) ? text.size() : 0);
    // More texts come than go in one half of the time, and more go in the other.
    if (noise() % 4 < (step / 5000 % 2 == 0 ? 1U : 3U)) {
      if (found != TextIndex::kNone) index.Remove(found);
      plain.erase(text);
    } else {
      index.Value(index.Add(key)) = plain[text] = step;
    }
    if (step % 20000 != 19999) continue;
    index.Clear();
    plain.clear();
  }
}

TEST(HashOf, DependsOnEachByteAndOnTheLength) {
  std::map<std::uint32_t, std::string> hashes;
  for (std::size_t size = 0; size < 50; ++size) {
    std::string text(size, '\0');
    ASSERT_TRUE(hashes.emplace(HashOf(text), text).second) << size;
    for (std::size_t i = 0; i < size; ++i) {
      text[i] = 'x';
      ASSERT_TRUE(hashes.emplace(HashOf(text), text).second) << size << " " << i;
      text[i] = '\0';
    }
  }
}

}  // namespace
}  // namespace requite::test
