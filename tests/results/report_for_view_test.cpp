// SPDX-License-Identifier: MIT
// The report as it is shown: whatever addresses hold, the page has no other markup than the report's.
#include "results/report_for_view.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

#include "platform/text.h"

namespace requite::test {
namespace {

const std::string kBefore = std::string(kReportBegin) +
                            "\r\n<body>\r\n<H1>Reciprocal Link Report</H1>\r\nDate: 1<BR>\r\n<hr>\r\n"
                            "<table cellpadding=5 border=0>\r\n<tr><td colspan=2><b>Overview</b></td></tr>"
                            "<tr><td><li>Direct Links</li></td><td> 1</td></tr></table><BR><BR>\r\n"
                            "<h1>Main Site Specific Overviews</h1>\r\n";

/// What is shown of the sections, without what is shown of the rest, which is checked here.
std::string Shown(const std::string& sections) {
  const std::string shown = ReportForView(kBefore + sections);
  const std::size_t policy = shown.find("<meta ");
  const std::size_t after = shown.find("\r\n", policy) + 2;
  EXPECT_EQ(kBefore, shown.substr(0, policy) + shown.substr(after, kBefore.size() - policy));
  EXPECT_NE(shown.substr(policy, after - policy).find("default-src 'none'"), std::string::npos);
  return shown.substr(after + kBefore.size() - policy);
}

std::string Link(const std::string& url) { return "<a href='" + url + "'>" + url + "</a><BR>"; }

TEST(ReportForView, OnlyTheReportsOwnTagsAreTags) {
  const std::array<std::array<std::string, 2>, 9> cases{{
      {"<h3>a &amp; b</h3>\r\nSite: " + Link("x.example") + "Status: None Found (Timeout)<BR><BR>",
       "<h3>a &amp; b</h3>\r\nSite: " + Link("x.example") + "Status: None Found (Timeout)<BR><BR>"},
      {"<h3>a</h3><plaintext></h3>\r\n", "<h3>a&lt;/h3&gt;&lt;plaintext&gt;</h3>\r\n"},
      {"Site: " + Link("<style>"), "Site: " + Link("&lt;style&gt;")},
      {"Site: " + Link("it's"), "Site: " + Link("it&#39;s")},
      {Link("a</a><BR>Site: <a href='b"), Link("a&lt;/a&gt;&lt;BR&gt;Site: &lt;a href=&#39;b")},
      // No address ends its own target, so this is not a link and all of it is text.
      {Link("a'><!--") + "<BR>",
       "&lt;a href=&#39;a&#39;&gt;&lt;!--&#39;&gt;a&#39;&gt;&lt;!--&lt;/a&gt;<BR><BR>"},
      {"Status: <h1><title></h1><td><br><BR>",
       "Status: &lt;h1&gt;&lt;title&gt;&lt;/h1&gt;&lt;td&gt;&lt;br&gt;<BR>"},
      {"<a href='a'>b</a><BR>", "&lt;a href=&#39;a&#39;&gt;b&lt;/a&gt;<BR>"},
      {"<h3>never closed", "&lt;h3&gt;never closed"},
  }};
  for (const auto& [sections, shown] : cases) EXPECT_EQ(Shown(sections), shown) << sections;
  const std::string longest(kLongestLinkShown, 'x');
  EXPECT_EQ(Shown(Link(longest)), Link(longest));
  EXPECT_TRUE(Shown(Link(longest + "x")).starts_with("&lt;a"));
}

TEST(ReportForView, OnlyAReportWithTheProgramsOwnStyleMayHaveOne) {
  EXPECT_EQ(ReportForView(kBefore).find("style"), std::string::npos);
  const std::string shown = ReportForView(kBefore + "<h3></style></h3>\r\n", "a{color:red}");
  EXPECT_NE(shown.find("style-src 'unsafe-inline'"), std::string::npos);
  EXPECT_NE(shown.find("<style>a{color:red}</style>"), std::string::npos);
  EXPECT_NE(shown.find("<h3>&lt;/style&gt;</h3>"), std::string::npos);
}

TEST(ReportForView, NothingIsLostAndNothingElseIsMarkup) {
  const std::array<std::string, 14> pieces{"<h3>",   "</h3>", "\r\n", "<BR>", "<a href='", "'>",   "</a>",
                                           "Site: ", "x",     "<",    "'",    ">",         "<!--", "<title>"};
  std::mt19937 random(1);
  for (int run = 0; run < 20'000; ++run) {
    std::string sections;
    for (auto i = random() % 30; i > 0; --i) sections += pieces[random() % pieces.size()];
    std::string shown = Shown(sections + Link(sections));
    std::string plain = shown;
    ReplaceIn(plain, "&lt;", "<", Compare::Binary);
    ReplaceIn(plain, "&gt;", ">", Compare::Binary);
    ReplaceIn(plain, "&#39;", "'", Compare::Binary);
    EXPECT_EQ(plain, sections + Link(sections));
    for (const std::string tag : {"<h3>", "</h3>\r\n", "<BR>"})
      shown = Replace(shown, tag, "", Compare::Binary);
    for (std::size_t at = shown.find('<'); at != std::string::npos; at = shown.find('<', at)) {
      const std::size_t middle = shown.find("'>", at + 9);
      ASSERT_TRUE(shown.substr(at).starts_with("<a href='") && middle != std::string::npos) << shown;
      const std::string target = shown.substr(at + 9, middle - at - 9);
      ASSERT_TRUE(shown.substr(middle + 2).starts_with(target + "</a>")) << shown;
      at = middle + 2 + target.size() + 4;
    }
  }
}

}  // namespace
}  // namespace requite::test
