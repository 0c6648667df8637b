// SPDX-License-Identifier: MIT
// Tags go as they would by one replacement after the other, and long hostile texts take no longer.
#include "import/strip_tags.h"

#include <gtest/gtest.h>

#include "support/hostile_text.h"
#include "support/plain_import.h"

namespace requite::test {
namespace {

TEST(StripTags, AgreesWithThePlainLoopOnRandomTexts) {
  std::mt19937 random(4711);
  const std::vector<std::vector<std::string>> alphabets = {
      {"<", ">", "a"},
      {"<b>", "<", "b>", "x", "<c>", "c>"},
      {"<b>", "<", ">", "<a<b>", "c>", "<<b>b>", "a", "<ac>", "<a<c>", "y"}};
  for (int round = 0; round < 20000; ++round) {
    const std::string text = RandomText(random, alphabets[round % alphabets.size()], 24);
    ASSERT_EQ(StripTags(text), PlainStripTags(text)) << text;
  }
}

TEST(StripTags, IsFastOnMillionsOfTags) {
  std::string different;
  std::string joining = "<b>";
  for (int i = 0; different.size() < 3'000'000; ++i) different += "<" + std::to_string(i) + ">x";
  while (joining.size() < 3'000'000) joining += "<<b>";
  EXPECT_EQ(StripTags(different).find('<'), std::string::npos);
  EXPECT_EQ(StripTags(joining).find('>'), std::string::npos);
}

}  // namespace
}  // namespace requite::test
