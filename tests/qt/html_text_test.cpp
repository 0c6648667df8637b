// SPDX-License-Identifier: MIT
// Pages as text: what is left of markup, and that no page can hide its rest or take long.
#include "qt/web/html_text.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>

namespace requite::test {
namespace {

constexpr std::size_t kMany = 1 << 20;

TEST(HtmlText, TagsGoAndTextStays) {
  const std::array<std::array<std::string_view, 2>, 16> cases{{
      {"<html><title>T</title><h1>A</h1> <p>b\r\n  c<br>d<br><br>e", "A\n\nb c\nd\n\ne"},
      {"<tr><td>a</td><td>b</td></tr><TR><TD>c", "a b\nc"},
      {"a<!-- <b> -->b<SCRIPT>x<y</Script>c<style>*{}</style >d", "abcd"},
      {"a &lt;b&gt; &amp;lt; &#60;&#x3E;&#8217;&nbsp<i>c</i>&unknown; &#0;&#9999999999; &",
       "a <b> &lt; <>\x92 c&unknown; &#0;&#9999999999; &"},
      {"1 < 2 <3 <", "1 < 2 <3 <"},
      // What is never closed is text.
      {"a<!--b", "a<!--b"},
      {"a<script>b", "ab"},
      {"a<plaintext>b<textarea>c", "abc"},
      {"a<b", "a<b"},
      {"</", "</"},
      {"<", "<"},
      {"&", "&"},
      {"", ""},
      {std::string_view("a\0\x1B[b\x7F", 6), "a [b"},
      {"<br><br><br> a<p></p><p>b", "a\n\nb"},
      {"<ul><li>a<li>b</ul>c<td><li>d</li><td>e", "a\nb\nc\nd e"},
  }};
  for (const auto& [page, text] : cases) EXPECT_EQ(TextOfHtml(page, kMany).Text, text) << page;
}

TEST(HtmlText, TextAndLinesAreBounded) {
  const std::string page(10'000, 'x');
  const HtmlText whole = TextOfHtml(page, kMany);
  EXPECT_FALSE(whole.Cut);
  EXPECT_EQ(whole.Text.size(), page.size() + 2);
  EXPECT_LT(whole.Text.find('\n'), 4097U);
  const HtmlText cut = TextOfHtml("<p>" + page, 5'000);
  EXPECT_TRUE(cut.Cut);
  EXPECT_LE(cut.Text.size(), 5'000U);
}

TEST(HtmlText, NoPageTakesLong) {
  for (const std::string_view piece :
       {"<!--", "<script>", "<style><", "<a ", "</", "&#", "<!", "<title><!--<"}) {
    std::string page;
    while (page.size() < 4 * kMany) page += piece;
    const auto begin = std::chrono::steady_clock::now();
    (void)TextOfHtml(page, 8 * kMany);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(20)) << piece;
  }
}

}  // namespace
}  // namespace requite::test
