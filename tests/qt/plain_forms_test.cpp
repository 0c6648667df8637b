// SPDX-License-Identifier: MIT
// What the console has without the toolkit is what the toolkit would say: the code page and the plain locale.
#include <gtest/gtest.h>

#include <QString>
#include <cstdlib>
#include <random>
#include <string>

#include "qt/services/code_page.h"
#include "qt/services/system_clock.h"
#include "system/locale_module.h"
#include "system/wall_clock.h"

namespace requite::test {
namespace {

std::string FromUtf8OfToolkit(const std::string& utf8) {
  return FromUnicode(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

std::string Bytes(std::uint32_t number, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += static_cast<char>(number >> (8 * i));
  return bytes;
}

TEST(CodePageTest, EveryByteSurvivesThereAndBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(FromUnicode(ToUnicode(all)), all);
  EXPECT_EQ(ToUtf8(all), ToUnicode(all).toStdString());
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
  EXPECT_EQ(ToUtf8("\x80\x8A\x81 \xE9"), "\xE2\x82\xAC\xC5\xA0\xC2\x81 \xC3\xA9");
}

TEST(CodePageTest, AStrangeCharacterIsOneQuestionMark) {
  EXPECT_EQ(FromUtf8("a\xE6\xBC\xA2z"), "a?z");               // Chinese
  EXPECT_EQ(FromUtf8("a\xF0\x9F\x98\x80z"), "a?z");           // beyond the basic plane
  EXPECT_EQ(FromUtf8("a\xC2\x80z\xC2\x9F"), "a?z?");          // controls whose bytes are letters here
  EXPECT_EQ(FromUtf8(std::string_view("a\xFFz", 3)), "a?z");  // no UTF-8
}

TEST(CodePageTest, Utf8IsReadAsTheToolkitReadsItFaultForFault) {
  for (int count = 1; count <= 2; ++count) {
    for (std::uint32_t number = 0; number < 1U << (8 * count); ++number) {
      const std::string text = Bytes(number, count);
      ASSERT_EQ(FromUtf8(text), FromUtf8OfToolkit(text)) << std::hex << number;
    }
  }
  for (std::uint32_t begin = 0; begin <= 0xFFFF; ++begin) {
    if ((begin & 0xFF) < 0xC0) continue;  // begins with a byte of its own: two bytes have shown the rest
    std::string text;                     // the three bytes that begin so, apart from each other
    for (std::uint32_t third = 0; third <= 0xFF; ++third) text += Bytes(begin | third << 16U, 3) + 'z';
    if (FromUtf8(text) != FromUtf8OfToolkit(text)) FAIL() << std::hex << begin;
  }
  std::mt19937 random(1);
  for (int i = 0; i < 300'000; ++i) {
    // Most begin like a character of four bytes; some of the others are longer texts.
    std::string text = Bytes(static_cast<std::uint32_t>(random()), 4);
    if (i % 4 != 0) text = static_cast<char>(0xF0 + random() % 6) + text;
    if (i % 4 == 1)
      for (std::size_t at = 1; at < text.size(); ++at) text[at] = static_cast<char>(0x80 | (text[at] & 0x3F));
    if (i % 8 == 0) text.insert(0, "\xEF\xBB\xBF");
    ASSERT_EQ(FromUtf8(text), FromUtf8OfToolkit(text)) << ::testing::PrintToString(text);
  }
}

TEST(PlainClockTest, TheWordsOfThePlainLocaleAreTheToolkits) {
  ::setenv("LC_ALL", "C", 1);  // before the toolkit first asks for it
  SystemClock toolkit;
  PlainClock plain;
  for (const double value : {0.0, 0.005, 1.005, 33.335, 99.995, 100.0, 999.994, 999.995, 1006.0, 123456.785,
                             1234567.89, -1002.675, -999.0, 1e15, 1e22}) {
    EXPECT_EQ(plain.TwoDecimals(value), toolkit.TwoDecimals(value)) << value;
  }
  // A second may end between the two.
  const auto same = [&] { return plain.ShortDate() == toolkit.ShortDate(); };
  EXPECT_TRUE(same() || same()) << plain.ShortDate() << ' ' << toolkit.ShortDate();
  const auto sameTime = [&] { return plain.ShortTime() == toolkit.ShortTime(); };
  EXPECT_TRUE(sameTime() || sameTime()) << plain.ShortTime() << ' ' << toolkit.ShortTime();
}

TEST(PlainClockTest, EveryVariableThatTheLocaleIsTakenFromCounts) {
  for (const char* name : {"LC_ALL", "LC_TIME", "LC_NUMERIC", "LC_MESSAGES", "LANG"}) ::unsetenv(name);
  EXPECT_TRUE(LocaleIsPlain());
  ::setenv("LANG", "C.UTF-8", 1);
  EXPECT_TRUE(LocaleIsPlain());
  for (const char* name : {"LC_ALL", "LC_TIME", "LC_NUMERIC", "LC_MESSAGES", "LANG"}) {
    ::setenv(name, "de_DE.UTF-8", 1);
    EXPECT_FALSE(LocaleIsPlain()) << name;
    ::unsetenv(name);
  }
}

}  // namespace
}  // namespace requite::test
