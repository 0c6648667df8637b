// SPDX-License-Identifier: MIT
// Comparing, cutting and joining of texts, in named rows.
#include "platform/text.h"

#include <gtest/gtest.h>

namespace requite::test {
namespace {

using Pieces = std::vector<std::string>;

struct CompareRow {
  const char* name;
  std::string_view text, what;
  bool startsIgnoringCase, startsExactly, endsIgnoringCase, endsExactly, equalIgnoringCase, equalExactly;
};

TEST(Text, ComparesStartsAndEnds) {
  constexpr CompareRow kRows[] = {
      {"other case", "HTTP", "http", true, false, true, false, true, false},
      {"a start in other case", "HTTP://x", "http", true, false, false, false, false, false},
      {"an end in other case", "a.HTM", ".htm", false, false, true, false, false, false},
      {"an empty part", "abc", "", true, true, true, true, false, false},
      {"two empty texts", "", "", true, true, true, true, true, true},
      {"letters above 127", "\x8A\x8C\x8E\x9F\xC0\xDE", "\x9A\x9C\x9E\xFF\xE0\xFE", true, false, true, false,
       true, false},
      {"multiplication and division signs differ", "\xD7", "\xF7", false, false, false, false, false, false},
      {"sharp s has one case", "\xDF", "\xFF", false, false, false, false, false, false},
  };
  for (const CompareRow& row : kRows) {
    EXPECT_EQ(StartsWith(row.text, row.what, Compare::Text), row.startsIgnoringCase) << row.name;
    EXPECT_EQ(StartsWith(row.text, row.what, Compare::Binary), row.startsExactly) << row.name;
    EXPECT_EQ(EndsWith(row.text, row.what, Compare::Text), row.endsIgnoringCase) << row.name;
    EXPECT_EQ(EndsWith(row.text, row.what, Compare::Binary), row.endsExactly) << row.name;
    EXPECT_EQ(Equals(row.text, row.what, Compare::Text), row.equalIgnoringCase) << row.name;
    EXPECT_EQ(Equals(row.text, row.what, Compare::Binary), row.equalExactly) << row.name;
    EXPECT_EQ(CompareText(row.text, row.what) == 0, row.equalIgnoringCase) << row.name;
  }
}

TEST(Text, SortsIgnoringCaseAndShorterFirst) {
  EXPECT_LT(CompareText("a", "B"), 0);
  EXPECT_LT(CompareText("Site", "site2"), 0);
  EXPECT_LT(CompareText("", "a"), 0);
  EXPECT_GT(CompareText("\xC0", "z"), 0) << "bytes above 127 are not negative";
}

TEST(Text, LowersBlocksAsSingleBytes) {
  // Whole blocks of plain letters take another road than those with a letter beyond ASCII.
  const std::string block = "THE QUICK BROWN FOX [JUMPS] @{OVER} 0123456789 OF THE LAZY DOG";
  const std::string folded = "the quick brown fox [jumps] @{over} 0123456789 of the lazy dog";
  EXPECT_EQ(Lower(block + "\xC0\x8A\xD7" + block), folded + "\xE0\x9A\xD7" + folded);
}

}  // namespace
}  // namespace requite::test
