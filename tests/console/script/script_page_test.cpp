// SPDX-License-Identifier: MIT
// The page on the script language names each command, variable and operation that exists, and no other.
#include <gtest/gtest.h>

#include <set>

#include "console/script/call_commands.h"
#include "platform/files.h"
#include "platform/text.h"

namespace requite {
namespace {

using Names = std::set<std::string, std::less<>>;

/// The lines of a section of the page, its title without the "##".
std::vector<std::string> Section(std::string_view title) {
  std::vector<std::string> lines;
  bool within = false;
  for (std::string& line : Split(ReadFile(REQUITE_SCRIPT_PAGE), "\n")) {
    if (line.starts_with("## ")) within = line.substr(3) == title;
    if (within) lines.push_back(std::move(line));
  }
  EXPECT_FALSE(lines.empty()) << "no section " << title;
  return lines;
}

/// The text in backquotes in the first column of a section's table.
Names FirstColumn(std::string_view title) {
  Names names;
  for (const std::string& line : Section(title)) {
    if (!line.starts_with("| `")) continue;
    const std::vector<std::string> quoted = Split(Split(line, " | ").front(), "`");
    for (std::size_t i = 1; i < quoted.size(); i += 2) {
      EXPECT_TRUE(names.insert(quoted[i]).second) << quoted[i] << " comes twice";
    }
  }
  return names;
}

Names Of(const std::vector<std::string_view>& names) { return {names.begin(), names.end()}; }

TEST(ScriptPage, NamesEveryCommandInItsFormAndNoOther) {
  Names inPage;
  for (const char* title :
       {"Commands of the user", "Commands that print", "Commands for the script and the program"}) {
    inPage.merge(FirstColumn(title));
  }
  Names inProgram;
  for (const std::string& line : Split(CommandTable(), "\n"))
    inProgram.insert(line.substr(0, line.find("  ")));
  EXPECT_EQ(inPage, inProgram);
}

TEST(ScriptPage, NamesEveryVariableAndOperationAndNoOther) {
  EXPECT_EQ(FirstColumn("Variables"), Of(VariableNames()));
  EXPECT_EQ(FirstColumn("Operations"), Of(OperationNames()));
}

TEST(ScriptPage, ItsExampleHasOnlyCommandsThatExist) {
  int commands = 0;
  bool script = false;
  for (const std::string& line : Section("An example")) {
    if (line.starts_with("```")) {
      script = line == "```script";
    } else if (script && !line.starts_with('#')) {
      ++commands;
      EXPECT_NE(FindCommand(Before(line, ' ')), nullptr) << line;
    }
  }
  EXPECT_GT(commands, 5);
}

}  // namespace
}  // namespace requite
