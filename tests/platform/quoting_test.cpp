// SPDX-License-Identifier: MIT
// Hostile texts stay one value in each format; faults in UTF-8 are seen.
#include "platform/quoting.h"

#include <gtest/gtest.h>

#include "platform/utf8_characters.h"

namespace requite {
namespace {

using namespace std::string_view_literals;

TEST(Quoting, KeepsATextInItsPlaceAndMakesItHarmless) {
  const struct {
    const char* Name;
    std::string_view Text;
    const char* Json;
    const char* Xml;
    const char* Csv;
  } rows[] = {
      {"plain", "a.example/caf\xC3\xA9", "\"a.example/caf\xC3\xA9\"", "a.example/caf\xC3\xA9",
       "a.example/caf\xC3\xA9"},
      {"empty", "", "\"\"", "", ""},
      {"quotes", "\"<&\\>,", R"("\"<&\\>,")", "&quot;&lt;&amp;\\&gt;,", "\"\"\"<&\\>,\""},
      {"lines", "a\r\n\tb", R"("a\r\n\tb")", "a&#13;&#10;&#9;b", "\"a\r\n\tb\""},
      {"control", "a\0\x1B\x7F\xC2\x9B"sv, R"("a\u0000\u001B\u007F\u009B")", R"(a\x00\x1B\x7F\x9B)",
       R"(a\x00\x1B\x7F\x9B)"},
      {"direction", "a\xE2\x80\xAE\xD8\x9C", R"("a\u202E\u061C")", "a\xE2\x80\xAE\xD8\x9C",
       "a\xE2\x80\xAE\xD8\x9C"},
      {"no character", "\xEF\xBF\xBF\xEF\xBF\xBE", "\"\xEF\xBF\xBF\xEF\xBF\xBE\"", "\xEF\xBF\xBD\xEF\xBF\xBD",
       "\xEF\xBF\xBF\xEF\xBF\xBE"},
      {"cut short", "a\xE2\x80", "\"a\xEF\xBF\xBD\xEF\xBF\xBD\"", "a\xEF\xBF\xBD\xEF\xBF\xBD",
       "a\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"formula", "=cmd|'/c calc'!A0", "\"=cmd|'/c calc'!A0\"", "=cmd|'/c calc'!A0", "'=cmd|'/c calc'!A0"},
      {"formula after blanks", "  @SUM(1,2)", "\"  @SUM(1,2)\"", "  @SUM(1,2)", "\"'  @SUM(1,2)\""},
      {"formula after a tab", "\t=1", R"("\t=1")", "&#9;=1", "\"'\t=1\""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(JsonString(row.Text), row.Json) << row.Name;
    EXPECT_EQ(XmlText(row.Text), row.Xml) << row.Name;
    EXPECT_EQ(CsvCell(row.Text), row.Csv) << row.Name;
  }
  for (const char* sign : {"=", "+", "-", "@", "\r"}) {
    EXPECT_EQ(CsvCell(sign).find('\''), *sign == '\r' ? 1U : 0U) << sign;
  }
}

TEST(Utf8, NothingElseIsTaken) {
  for (const char* text : {"", "a\x7F", "\xC2\x80\xDF\xBF", "\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80",
                           "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"}) {
    EXPECT_TRUE(IsUtf8(text)) << testing::PrintToString(text);
  }
  // A stray byte, cut characters, longer forms than needed, a surrogate, one beyond the last.
  for (const char* fault : {"\x80", "\xFF", "\xC3", "\xE2\x80", "\xF0\x90\x80", "\xC0\xAF", "\xE0\x80\xAF",
                            "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
    EXPECT_FALSE(IsUtf8(fault)) << testing::PrintToString(fault);
    EXPECT_EQ(JsonString(fault).size(), 2 + 3 * std::string_view(fault).size()) << "one U+FFFD a byte";
  }
}

}  // namespace
}  // namespace requite
