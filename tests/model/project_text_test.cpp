// SPDX-License-Identifier: MIT
// The project file as it is written, byte for byte.
#include "model/project_text.h"

#include <gtest/gtest.h>

#include "support/rows.h"

namespace requite::test {
namespace {

constexpr std::string_view kPlainTail = "HTML01:a\r\nHTML02:b\r\nHTML03:c\r\nPOSTSINGLE:http://\r\n";

void SetHtml(Project& project, const std::string& a, const std::string& b, const std::string& c) {
  project.txtHTML1.SetText(a);
  project.txtHTML2.SetText(b);
  project.txtHTML3.SetText(c);
}

TEST(ProjectText, HoldsEveryCollectionInItsOrder) {
  Project project;
  project.AddMainSite("www.one.example");
  project.AddMainSite("http://two.example/x");
  project.AddMainSite("three.example");
  project.List1(1).Add({"a.example", "2", "http://a.example/", "Text", "Words"});
  project.List1(1).Add({"b.example", "1", "", "", ""});
  project.List1(3).Add({"c.example", "", "", "", ""});
  SetHtml(project, "<p>\r\n\r\n", "x\ny", "");
  project.List3.Add({"one.example", "a.example", "Direct Link", "001", "a.example/l"}, kIconGood, kBlue);
  project.List3.Add({"one.example", "b.example", "None Found", "000", "b.example"}, kIconBad, kRed);
  project.lstRules.Add({"Global", "Global", "LimitRoot", "links/"});
  project.lstMulti.Add({"three.example", "http://own.example/?$Status"});
  EXPECT_EQ(ProjectText(project),
            "www.one.example\r\n"
            "a.example|2|http://a.example/|Text|Text|Words\r\n"
            "b.example|1||||\r\n"
            "NEXTSITE:http://two.example/x\r\n"
            "NEXTSITE:three.example\r\n"
            "c.example|||||\r\n"
            "HTML01:<p>||||||\r\n"
            "HTML02:x\ny\r\n"
            "HTML03:\r\n"
            "RESULT:2|one.example|a.example|Direct Link|001|a.example/l\r\n"
            "RESULT:1|one.example|b.example|None Found|000|b.example\r\n"
            "RULE:Global|Global|LimitRoot|links/\r\n"
            "POSTSINGLE:http://\r\n"
            "POSTMULTI:three.example|http://own.example/?$Status\r\n");
}

TEST(ProjectText, AnEmptyScriptUrlHasNoLineAndNoSitesStartAtThePageBuilder) {
  Project project;
  SetHtml(project, "a", "b", "c");
  EXPECT_EQ(ProjectText(project), kPlainTail);
  project.txtPost.SetText("");
  EXPECT_EQ(ProjectText(project), "HTML01:a\r\nHTML02:b\r\nHTML03:c\r\n");
}

TEST(ProjectText, LeavesOutOneMainSiteAndMarksOnlyLaterOnes) {
  Project project;
  for (const char* text : {"one", "two", "three"}) project.AddMainSite(text);
  for (int k = 1; k <= 3; ++k) project.List1(k).Add({"site" + std::to_string(k), "1", "", "", ""});
  SetHtml(project, "a", "b", "c");
  const std::string tail(kPlainTail);
  EXPECT_EQ(ProjectText(project, 0), "two\r\nsite2|1||||\r\nNEXTSITE:three\r\nsite3|1||||\r\n" + tail);
  EXPECT_EQ(ProjectText(project, 1), "one\r\nsite1|1||||\r\nNEXTSITE:three\r\nsite3|1||||\r\n" + tail);
  EXPECT_EQ(ProjectText(project, 2), "one\r\nsite1|1||||\r\nNEXTSITE:two\r\nsite2|1||||\r\n" + tail);
}

}  // namespace
}  // namespace requite::test
