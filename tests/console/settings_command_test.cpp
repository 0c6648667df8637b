// SPDX-License-Identifier: MIT
// The list of settings: it leaves none out, and any value is one field of one line.
#include "console/settings_command.h"

#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <sstream>

#include "console/settings_table.h"
#include "platform/text.h"
#include "support/fakes.h"

namespace requite {
namespace {

std::string Same(std::string_view text) { return std::string(text); }
constexpr TextCodec kAscii{Same, Same};

std::string Listed(SettingsStore& store, SettingsFormat format) {
  std::ostringstream out;
  ListSettings(store, {"", format}, false, kAscii, out);
  return out.str();
}

// The lint step keeps docs/names.md equal to the settings of the program.
TEST(SettingsList, HasEverySettingOnceWithItsDefault) {
  std::map<std::string, std::string> known;
  std::ifstream page(REQUITE_NAMES_PAGE);
  for (std::string line; std::getline(page, line);) {
    const std::vector<std::string> cells = Split(line, " | ");
    if (cells.size() == 4 && cells[3] == "`src/model/settings.h` |")
      known[cells[0].substr(3, cells[0].size() - 4)] = cells[1];
  }
  ASSERT_GT(known.size(), 30U);
  for (const SettingFacts& each : AllSettings()) {
    const auto row = known.find(std::string(each.Key.Name));
    ASSERT_NE(row, known.end()) << each.Key.Name;
    if (row->second != "a hint") {
      EXPECT_EQ(each.Key.Default, row->second == "(none)" ? "" : row->second) << each.Key.Name;
    }
    known.erase(row);
  }
  EXPECT_THAT(known, testing::IsEmpty());
}

TEST(SettingsList, AnyValueIsOneFieldOfOneLine) {
  test::MemorySettings store;
  store.Write("txtHTML1", "a\tb\r\nc\x1B[2J\"");
  store.Write("LastProject", "/tmp/\xC3\xA9\n.prj");
  const std::string tsv = Listed(store, SettingsFormat::Default);
  EXPECT_EQ(std::count(tsv.begin(), tsv.end(), '\n'), static_cast<int>(AllSettings().size()) + 1);
  EXPECT_THAT(tsv, testing::HasSubstr("\ntxtHTML1\ta\\tb\\r\\nc\\x1B[2J\"\tPaste"));
  EXPECT_THAT(tsv, testing::HasSubstr("\nLastProject\t/tmp/\xC3\xA9\\x0A.prj\t\t"));
  EXPECT_THAT(Listed(store, SettingsFormat::Json),
              testing::HasSubstr(R"("value": "a\tb\r\nc\u001B[2J\"", "default")"));
  EXPECT_THAT(Listed(store, SettingsFormat::Text),
              testing::HasSubstr("\nchkAuto = 1\n    whether a site ends when the page limit is reached\n"
                                 "    values: 0 or 1\n    --max-pages, --no-max-pages\n"));
}

}  // namespace
}  // namespace requite
