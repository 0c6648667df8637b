// SPDX-License-Identifier: MIT
// `import`: what a table becomes in a project, and that a wrong one changes nothing.
#include "console/import_command.h"

#include <gtest/gtest.h>

#include "console/console_rig.h"

namespace requite {
namespace {

class Import : public testing::Test {
 protected:
  ExitStatus Run(const std::string& table) {
    WriteFile(options_.Table, table);
    rig_.Err.str("");
    return RunImport(rig_.Program, options_, false);
  }

  test::ConsoleRig rig_;
  ImportOptions options_{rig_.Folder.File("t.csv"), "www.main.example", rig_.Folder.File("a.prj")};
};

TEST_F(Import, AddsWhatTheWindowWouldAddAndPassesOverWhatIsThere) {
  EXPECT_EQ(Run("URL\nhttp://a.example/ \nb.example\n"), ExitStatus::Done) << rig_.Err.str();
  EXPECT_EQ(rig_.Err.str(), "2 sites added\n");
  const std::string byHand = rig_.Folder.File("by hand.prj");
  test::ConsoleRig window;
  window.Run(
      "click cmdNew\nset txtDomain www.main.example\nclick cmdAdd2\nset Text1 http://a.example/ \nclick "
      "cmdAdd\n" +
      ("set Text1 b.example\nclick cmdAdd\nanswer file " + byHand) + "\nclick cmdSave\n");
  EXPECT_EQ(ReadFile(options_.Project), ReadFile(byHand));

  // The Main Site and the sites are known in other forms, too; the rest of the project stays.
  options_.MainSite = "http://Main.example/";
  EXPECT_EQ(Run("Notes;#;Link;HTML_Name;html link\n;2;c.example;\"C;\r\n\"\"c\"\"\";c.example/in\n\n ; ;\n"
                ";;WWW.A.example;;\n;;https://C.example/;;\n"),
            ExitStatus::Done);
  EXPECT_EQ(rig_.Err.str(),
            "requite-console: line 6: WWW.A.example is in the list already\n"
            "requite-console: line 7: C.example/ is in the list already\n"
            "1 site added, 2 were in the list already\n");
  const std::string text = ReadFile(options_.Project);
  EXPECT_NE(text.find("\r\nb.example|1||||\r\nc.example|2|c.example/in|C; \"c\"|C; \"c\"|\r\nHTML01:"),
            std::string::npos)
      << text;
  EXPECT_EQ(text.find("NEXTSITE:"), std::string::npos);
  EXPECT_EQ(ReadFile(rig_.Folder.File("Backup/a.prj")), ReadFile(byHand));

  options_.MainSite = "other.example";
  EXPECT_EQ(Run("site\tdescription\na.example\t=cmd\n"), ExitStatus::Done);
  EXPECT_NE(ReadFile(options_.Project).find("NEXTSITE:other.example\r\na.example|1||||=cmd\r\n"),
            std::string::npos);
}

TEST_F(Import, AWrongTableOrProjectIsOneLineAndChangesNothing) {
  const std::string good = "main.example\r\na.example|1|||\r\n";
  const struct {
    const char* Table;
    const char* Why;
  } rows[] = {
      {"", "is empty"},
      {"\n \n", "is empty"},
      {"a.example\nb.example\n", "line 1: no column is named as the website"},
      {"url,Site\n", "line 1: two columns hold the website: \"url\" and \"Site\""},
      {"url\nb.example\n\"c\n\nd", "line 3: a quote that is opened here is never closed"},
      {"url\n\"c\"d\n", "line 2: text follows a closing quote"},
      {"url\nb.example\nc|RULE:\n", "line 3: a cell holds a \"|\""},
      {"url\nNEXTSITE:evil.example\n", "line 2: the website begins like another line"},
      {"url\nb\x1B.example\n", "line 2: a cell holds a control character"},
      {"url\r\rb.example\rhttp://\r", "line 4: the website is missing"},
      {"url,links\nb.example,-1\n", "line 2: \"-1\" is no number of links"},
      {"url,links\nb.example,32768\n", "line 2: \"32768\" is no number of links"},
      {"url\nb,c\n", "line 2: more cells than the first line has"},
      {"\xFF\xFEu", "is UTF-16"},
  };
  for (const auto& row : rows) {
    WriteFile(options_.Project, good);
    EXPECT_EQ(Run(row.Table), ExitStatus::Refused) << row.Why;
    const std::string told = rig_.Err.str();
    EXPECT_EQ(told.rfind("requite-console: \"" + options_.Table + "\": " + row.Why, 0), 0U) << told;
    EXPECT_EQ(told.find('\n'), told.size() - 1) << told;
    EXPECT_EQ(ReadFile(options_.Project), good) << row.Why;
  }
  const std::string damaged = good + "RESULT:x|a|b|c\r\nb.example|1|||\r\n";
  WriteFile(options_.Project, damaged);
  EXPECT_EQ(Run("url\nz.example\n"), ExitStatus::Refused);
  EXPECT_NE(rig_.Err.str().find("is damaged: line 3 cannot be read\n"), std::string::npos) << rig_.Err.str();
  EXPECT_EQ(ReadFile(options_.Project), damaged);
}

}  // namespace
}  // namespace requite
