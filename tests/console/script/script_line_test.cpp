// SPDX-License-Identifier: MIT
// The grammar of script lines and the escapes.
#include "console/script/script_line.h"

#include <gtest/gtest.h>

#include "console/text_codec.h"

namespace requite {
namespace {

using Words = std::vector<std::string>;

TEST(ScriptLine, TheLastArgumentRunsToTheEndOfTheLine) {
  const struct {
    const char* Rest;
    std::size_t Most;
    Words Expected;
  } cases[] = {
      {"", 2, {}},
      {"Text1", 2, {"Text1"}},
      {"Text1  two  words ", 2, {"Text1", "two  words"}},
      {"two words", 1, {"two words"}},
      {"Text1 \\s\\sx\\s", 2, {"Text1", "  x "}},
      {"a\\tb\\\\s c", 2, {"a\tb\\s", "c"}},
      {"anything", 0, {}},
  };
  for (const auto& each : cases) EXPECT_EQ(ReadArguments(each.Rest, each.Most), each.Expected) << each.Rest;
}

TEST(ScriptLine, WhatIsNoEscapeIsRefusedUnlessEscapesAreKept) {
  EXPECT_FALSE(ReadArguments("C:\\x", 1));
  EXPECT_FALSE(ReadArguments("end\\", 1));
  EXPECT_EQ(ReadArguments("5 echo a\\tb", 2, Escapes::Keep), (Words{"5", "echo a\\tb"}));
}

TEST(TextCodec, EveryTextSurvivesEscaping) {
  const std::string text = "a\tb\r\nc\\n \\s ";
  EXPECT_EQ(Escaped(text), "a\\tb\\r\\nc\\\\n \\\\s ");
  EXPECT_EQ(Unescaped(Escaped(text)), text);
}

TEST(TextCodec, ControlCharactersAreShown) {
  const std::string hostile("\x1b]0;x\x07\0\x7f\x90\x9f\xe9", 11);
  EXPECT_EQ(Escaped(hostile), "\\x1B]0;x\\x07\\x00\\x7F\\x90\x9f\xe9");
  EXPECT_EQ(VisibleUtf8("\xc3\xa9\xc2\x9b\n\x7f"), "\xc3\xa9\\x9B\\x0A\\x7F");
  EXPECT_EQ(Visible("a\tb\r\n\x1b"), "a\tb\r\n\\x1B");
}

}  // namespace
}  // namespace requite
