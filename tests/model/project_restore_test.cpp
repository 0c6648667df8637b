// SPDX-License-Identifier: MIT
// What the writer of project files wrote comes back byte for byte, whatever the values hold.
#include "model/project_restore.h"

#include <gtest/gtest.h>

#include <random>

#include "model/project_text.h"
#include "support/rows.h"

namespace requite::test {
namespace {

std::string Again(const std::string& text) {
  Project project;
  EXPECT_TRUE(RestoreProjectText(text, project)) << text;
  return ProjectText(project);
}

TEST(ProjectRestore, KeepsWhatTheReaderOfProjectFilesLoses) {
  Project project;
  project.AddMainSite("");
  project.AddMainSite("main.example");
  project.List1(2).Add({"b.example", "2", "http://b.example/", "Text", "Other words"});
  project.List1(2).Add({"a.example", "1", "", "bar|in|text", "bar|in|words"});
  project.txtHTML1.SetText("");
  project.txtHTML2.SetText("HTML02:|||\r\nx");
  project.List3.SetSort({true, 1, 0});
  project.List3.Add({"m", "z", "Direct Link", "001", "u|v"}, kIconGood, kBlue);
  project.List3.Set(0, &LinkResult::Linking, "a");  // edited since the sort
  project.List3.Insert(0, {"m", "x", "None Found", "000", "u"}, kIconBad, kRed);
  project.lstRules.Add({"main.example", "a.example", "LimitRoot", "a|b"});
  project.txtPost.SetText("");
  project.lstMulti.Add({"main.example", "http://own.example/?a|b"});
  const std::string text = ProjectText(project);
  Project back;
  back.List3.SetSort({true, 1, 0});
  ASSERT_TRUE(RestoreProjectText(text + "\r\n", back));
  EXPECT_EQ(ProjectText(back), text);
  EXPECT_EQ(Rows(back.List1(2)), (std::vector<std::string>{"b.example|2|http://b.example/|Text|Other words",
                                                           "a.example|1||bar|in|text|bar|in|words"}));
  EXPECT_EQ(Again("HTML01:\r\nHTML02:\r\nHTML03:\r\n"), "HTML01:\r\nHTML02:\r\nHTML03:\r\n");
}

TEST(ProjectRestore, RandomValuesComeBack) {
  constexpr std::string_view kPieces[] = {"a",        "|",           "||",    "NEXTSITE:", "RESULT:",
                                          "HTML01:x", "HTML03:",     "RULE:", "\n",        "\xE9",
                                          " ",        "POSTSINGLE:", ""};
  std::mt19937 random(7);
  const auto pick = [&](std::size_t below) { return random() % below; };
  const auto value = [&] {
    std::string made;
    for (std::size_t i = pick(4); i > 0; --i) made += kPieces[pick(std::size(kPieces))];
    return made;
  };
  for (int i = 0; i < 2000; ++i) {
    Project project;
    for (std::size_t site = pick(4); site > 0; --site) {
      project.AddMainSite(value());
      // The first three values are told apart by their bars.
      for (std::size_t row = pick(3); row > 0; --row)
        project.List1(project.ListCount()).Add({"s", "1", "p", value(), value()});
    }
    project.txtHTML1.SetText(value());
    for (std::size_t row = pick(3); row > 0; --row)
      project.List3.Add({value(), value(), value(), value(), value()}, static_cast<int>(pick(3)));
    for (std::size_t row = pick(3); row > 0; --row)
      project.lstRules.Add({value(), value(), value(), value()});
    for (std::size_t row = pick(2); row > 0; --row) project.lstMulti.Add({value(), value()});
    const std::string text = ProjectText(project);
    ASSERT_EQ(Again(text + "\r\n"), text);
  }
}

TEST(ProjectRestore, ATextThatTheWriterDidNotWriteChangesNothing) {
  const std::string good = "main.example\r\na.example|1|||||\r\nHTML01:a\r\nHTML02:b\r\nHTML03:c\r\n";
  for (const std::string& text :
       {std::string(), std::string("main.example\r\n"), good.substr(0, good.size() - 12),
        "x" + good.substr(12), good + "RESULT:x|a|b|c|d|e\r\n", good + "RESULT:1|a\r\n",
        good + "RULE:a|b\r\n", good + "other\r\n",
        std::string("m\r\nno fields\r\nHTML01:a\r\nHTML02:b\r\nHTML03:c\r\n")}) {
    Project project;
    const std::string before = ProjectText(project);
    if (RestoreProjectText(text, project)) {
      EXPECT_EQ(ProjectText(project), text);
    } else {
      EXPECT_EQ(ProjectText(project), before);
    }
  }
  Project project;
  EXPECT_FALSE(RestoreProjectText(good + "RESULT:x|a|b|c|d|e\r\n", project));
}

}  // namespace
}  // namespace requite::test
