// SPDX-License-Identifier: MIT
// Taking texts apart into lines, with either rule for a lone LF.
#include <gtest/gtest.h>

#include <vector>

#include "platform/files.h"

namespace requite::test {
namespace {

using Lines = std::vector<std::string>;

Lines LinesOf(std::string_view text, LineEnds ends) {
  // A buffer with nothing after it, so that a read too far is noticed.
  const std::vector<char> exact(text.begin(), text.end());
  LineReader reader({exact.data(), exact.size()}, ends);
  Lines lines;
  while (!reader.AtEnd()) lines.emplace_back(reader.Next().value());
  EXPECT_EQ(reader.Next(), std::nullopt);
  return lines;
}

/// The same by a walk over the bytes.
Lines PlainLinesOf(std::string_view text, LineEnds ends) {
  Lines lines;
  bool open = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = text.substr(i, 2) == "\r\n";
    if (!open) lines.emplace_back();
    open = !(text[i] == '\r' || (text[i] == '\n' && ends == LineEnds::Any));
    if (open) lines.back() += text[i];
    if (pair) ++i;
  }
  return lines;
}

TEST(LineReader, AgreesWithAPlainWalkOnEveryShortText) {
  constexpr std::string_view kBytes = "a\r\n";
  constexpr std::size_t kLength = 7;
  std::size_t count = 1;
  for (std::size_t i = 0; i < kLength; ++i) count *= kBytes.size();
  for (std::size_t number = 0; number < count; ++number) {
    std::string text;
    for (std::size_t rest = number, i = 0; i < kLength; ++i, rest /= kBytes.size())
      text += kBytes[rest % kBytes.size()];
    for (std::size_t cut = 0; cut <= kLength; ++cut) {
      for (const LineEnds ends : {LineEnds::CarriageReturn, LineEnds::Any}) {
        ASSERT_EQ(LinesOf(text.substr(0, cut), ends), PlainLinesOf(text.substr(0, cut), ends));
      }
    }
  }
}

TEST(LineReader, StaysLinearWithOneKindOfLineEnd) {
  // A search of each kind to the end of the text for every line would look at some 10^12 bytes.
  for (const char end : {'\r', '\n'}) {
    const std::string text(std::size_t{2} << 20U, end);
    LineReader reader(text, LineEnds::Any);
    std::size_t count = 0;
    while (reader.Next()) ++count;
    EXPECT_EQ(count, text.size());
  }
}

}  // namespace
}  // namespace requite::test
