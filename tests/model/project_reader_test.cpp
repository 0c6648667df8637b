// SPDX-License-Identifier: MIT
// What each kind of line gives, where the reading ends silently, and what a project loses on its way
// through a file.
#include "model/project_reader.h"

#include <gmock/gmock.h>

#include "model/project_text.h"
#include "platform/files.h"
#include "support/rows.h"

namespace requite::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A project in the state in which a load starts to read.
struct Loaded {
  explicit Loaded(const std::string& text) {
    Data.CurrentMainSite = 1;
    ReachedEnd = ReadProjectText(text, Data);
  }
  Project Data;
  bool ReachedEnd = false;
};

std::string DataFile(const std::string& name) {
  return ReadFile(std::string(REQUITE_TEST_DATA) + "/project/" + name);
}

TEST(ProjectReader, ACurrentFileComesBackWithItsDescriptionsReplaced) {
  const Loaded project(DataFile("current.prj"));
  EXPECT_TRUE(project.ReachedEnd);
  EXPECT_THAT(Rows(project.Data.List4),
              ElementsAre("www.main-one.example", "https://main-two.example/shop", "main-three.example"));
  EXPECT_EQ(project.Data.CurrentMainSite, 3);
  EXPECT_THAT(
      Rows(project.Data.List1(1)),
      ElementsAre("partner.example/links|2|http://partner.example/|Partner|Partner", "caf\xE9.example|1|||"));
  EXPECT_THAT(Rows(project.Data.List1(2)), IsEmpty());
  EXPECT_THAT(Rows(project.Data.List1(3)), ElementsAre("only.example|1|||"));
  EXPECT_EQ(project.Data.txtHTML1.Text(), "<html>\r\n<body>");
  EXPECT_EQ(project.Data.txtHTML3.Text(), "</body>\r\n</html>\r\n");
  EXPECT_THAT(Rows(project.Data.List3),
              ElementsAre("main-one.example|partner.example|Direct Link|001|partner.example/links",
                          "main-one.example|caf\xE9.example|None Found (Timeout)|000|caf\xE9.example"));
  EXPECT_EQ(project.Data.List3.Icon(0), kIconGood);
  EXPECT_EQ(project.Data.List3.Icon(1), kIconBad);
  EXPECT_EQ(project.Data.List3.Colour(0), kDefaultColour);
  EXPECT_EQ(Rows(project.Data.lstRules).size(), 2U);
  EXPECT_EQ(project.Data.txtPost.Text(), "http://own.example/put?s=$Status");
  EXPECT_THAT(Rows(project.Data.lstMulti), ElementsAre("main-three.example|http://own.example/three"));
}

TEST(ProjectReader, AnOlderFileKeepsItsDescriptionsAndHasNoMainColumn) {
  const Loaded project(DataFile("older.prj"));
  EXPECT_TRUE(project.ReachedEnd);
  EXPECT_THAT(Rows(project.Data.List1(1)),
              ElementsAre("one.example|1|http://one.example/|One|A site of one", "two.example|3|||",
                          "three.example|1|http://three.example/||"));
  EXPECT_THAT(Rows(project.Data.List3), ElementsAre("|one.example|Direct Link|001|one.example/links.html",
                                                    "|two.example|Missing 002|000|two.example"));
}

TEST(ProjectReader, EmptyLinesAreSkippedAndALoneLineFeedEndsNoLine) {
  const Loaded project(DataFile("hand_edited.prj"));
  EXPECT_TRUE(project.ReachedEnd);
  EXPECT_THAT(Rows(project.Data.List4), ElementsAre("main.example", "second.example\nstill the second"));
  EXPECT_THAT(Rows(project.Data.List1(1)), ElementsAre("one.example|1|||"));
  EXPECT_THAT(Rows(project.Data.List1(2)), ElementsAre("two.example|1\nnot a line|x||"));
  EXPECT_THAT(Rows(Loaded("m\ra|1\r\r\nb|2").Data.List1(1)), ElementsAre("a|1|||", "b|2|||"));
  EXPECT_THAT(Rows(Loaded("m\na|1").Data.List4), ElementsAre("m\na|1"));
}

TEST(ProjectReader, TheFirstLineIsAMainSiteWhateverItSays) {
  for (const char* line : {"", " ", "NEXTSITE:x", "RESULT:1|2|3|4|5|6", "a|b", "RULE:"}) {
    const Loaded project(std::string(line) + "\r\na.example|1\r\n");
    EXPECT_THAT(Rows(project.Data.List4), ElementsAre(line));
    EXPECT_THAT(Rows(project.Data.List1(1)), ElementsAre("a.example|1|||")) << line;
  }
  EXPECT_FALSE(Loaded("").ReachedEnd);
  EXPECT_THAT(Rows(Loaded("").Data.List4), IsEmpty());
}

/// One line after a Main Site: what it adds, and whether the next line is still read.
struct LineRow {
  std::string Line;
  bool GoesOn;
  std::vector<std::string> Sites;
  std::vector<std::string> Results;
  std::vector<std::string> Rules;
  std::vector<std::string> Scripts;
};

TEST(ProjectReader, EachLineIsTakenByTheFirstTestThatFits) {
  const std::vector<LineRow> table{
      // Linking Sites
      {"a.example|1|u|t|d|e|f|g", true, {"a.example|1|u|t|d"}, {}, {}, {}},
      {"a.example", false, {"a.example||||"}, {}, {}, {}},
      {"|", true, {"||||"}, {}, {}, {}},
      {"  ", false, {"  ||||"}, {}, {}, {}},
      {"nextsite:x", false, {"nextsite:x||||"}, {}, {}, {}},  // markers are in capitals
      {" RULE:a|b|c|d", true, {" RULE:a|b|c|d|"}, {}, {}, {}},
      // too short for their markers
      {"RULE:|a", true, {"RULE:|a|||"}, {}, {}, {}},
      {"RESULT:", false, {"RESULT:||||"}, {}, {}, {}},
      {"NEXTSITE:", false, {"NEXTSITE:||||"}, {}, {}, {}},
      // results
      {"RESULT:2|m|l|s|001|u|more", true, {}, {"m|l|s|001|u"}, {}, {}},
      {"RESULT:2|l|s|001|u", true, {}, {"|l|s|001|u"}, {}, {}},
      {"RESULT:2|m|l|s|001|", true, {}, {"m|l|s|001|"}, {}, {}},
      {"RESULT:2|l|s|001", false, {}, {"|l|s|001|"}, {}, {}},
      {"RESULT:x|m|l|s|001|u", false, {}, {}, {}, {}},
      {"RESULT:32768|m|l|s|1|u", false, {}, {}, {}, {}},
      {"RESULT:RESULT:", false, {}, {}, {}, {}},
      {"RESULT:2|m|lRESULT:|s|001|uRESULT:", true, {}, {"m|l|s|001|u"}, {}, {}},
      // rules
      {"RULE:a|b|c|d|e", true, {}, {}, {"a|b|c|d"}, {}},
      {"RULE:a|b|cRULE:|", true, {}, {}, {"a|b|c|"}, {}},
      {"RULE:a|b|c", false, {}, {}, {"a|b|c|"}, {}},
      {"RULE:RULE:", false, {}, {}, {"|||"}, {}},
      // script URLs
      {"POSTMULTI:m|u|v", true, {}, {}, {}, {"m|u"}},
      {"POSTMULTI:|", true, {}, {}, {}, {"|"}},
  };
  for (const LineRow& row : table) {
    const Loaded project("main\r\n" + row.Line + "\r\nPOSTSINGLE:reached\r\n");
    EXPECT_EQ(project.ReachedEnd, row.GoesOn) << row.Line;
    EXPECT_EQ(project.Data.txtPost.Text() == "reached", row.GoesOn) << row.Line;
    EXPECT_EQ(Rows(project.Data.List1(1)), row.Sites) << row.Line;
    EXPECT_EQ(Rows(project.Data.List3), row.Results) << row.Line;
    EXPECT_EQ(Rows(project.Data.lstRules), row.Rules) << row.Line;
    EXPECT_EQ(Rows(project.Data.lstMulti), row.Scripts) << row.Line;
    EXPECT_EQ(project.Data.List4.RowCount(), 1U) << row.Line;
  }
}

TEST(ProjectReader, MarkersGoWhereverTheyStandInTheirLine) {
  const Loaded project(
      "main\r\nNEXTSITE:NEXTSITE:\r\nNEXTSITE:xNEXTSITE:y\r\nHTML01:aHTML01:b||||c\r\nHTML02:HTML03:d\r\n"
      "HTMHTML03:L03:e|1\r\nHTML03:HTMHTML03:L03:f\r\nPOSTSINGLE:uPOSTSINGLE:v\r\n");
  EXPECT_TRUE(project.ReachedEnd);
  EXPECT_THAT(Rows(project.Data.List4), ElementsAre("main", "", "xy"));
  EXPECT_EQ(project.Data.txtHTML1.Text(), "ab\r\n|c");
  EXPECT_EQ(project.Data.txtHTML2.Text(), "HTML03:d");
  EXPECT_EQ(project.Data.txtHTML3.Text(), "HTML03:f");  // removed once, not again
  EXPECT_EQ(project.Data.txtPost.Text(), "uv");
}

TEST(ProjectReader, AFileCutAnywhereKeepsTheRowsBeforeTheCut) {
  const std::string whole = DataFile("current.prj");
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const Loaded project(whole.substr(0, length));
    ASSERT_EQ(project.Data.ListCount(), static_cast<int>(project.Data.List4.RowCount()));
    if (length > 100) {
      ASSERT_EQ(project.Data.List1(1).At(0).Description, "Partner") << length;
    }
  }
}

TEST(ProjectReader, VeryLongLinesCostNoMoreThanTheirLength) {
  constexpr std::size_t kLength = 10'000'000;
  const Loaded bars("m\r\n" + std::string(kLength, '|') + "\r\na|1\r\n");
  EXPECT_EQ(bars.Data.List1(1).RowCount(), 2U);
  const Loaded html("m\r\nHTML01:" + std::string(kLength, '|'));
  EXPECT_EQ(html.Data.txtHTML1.Text().size(), kLength / 3 * 2 + kLength % 3);
  std::string markers = "m\r\n";
  while (markers.size() < kLength) markers += "RULE:";
  EXPECT_EQ(Loaded(markers).Data.lstRules.RowCount(), 1U);
}

}  // namespace
}  // namespace requite::test
