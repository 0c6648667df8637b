// SPDX-License-Identifier: MIT
// The order of many texts, beside a plain stable sort of the same.
#include "model/text_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>

#include "platform/text.h"

namespace requite {
namespace {

std::vector<std::uint32_t> PlainOrder(const std::vector<std::string_view>& texts, Direction direction) {
  std::vector<std::uint32_t> order(texts.size());
  std::iota(order.begin(), order.end(), 0U);
  std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
    return direction == Direction::Ascending ? CompareText(texts[a], texts[b]) < 0
                                             : CompareText(texts[b], texts[a]) < 0;
  });
  return order;
}

/// Texts that share long beginnings, repeat, end early, hold bytes of 0 and differ in case alone.
TEST(TextOrder, IsThatOfAPlainStableSort) {
  std::mt19937 random(7);
  const std::string pieces[] = {
      "www.", "WWW.", "a", "A", std::string(1, '\0'), "partner12", "\xC9", "\xE9", std::string(200, 'x')};
  for (int round = 0; round < 400; ++round) {
    std::vector<std::string> texts(random() % 40);
    for (std::string& text : texts) {
      for (std::size_t left = random() % 30; left > 0; --left) text += pieces[random() % (2 + round % 8)];
    }
    const std::vector<std::string_view> views(texts.begin(), texts.end());
    for (const Direction direction : {Direction::Ascending, Direction::Descending}) {
      ASSERT_EQ(OrderOf(views, direction), PlainOrder(views, direction)) << "round " << round;
    }
  }
}

}  // namespace
}  // namespace requite
