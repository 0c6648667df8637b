// SPDX-License-Identifier: MIT
// A history that cannot be written: one line, and neither the scan nor what was there is harmed.
#include <gtest/gtest.h>

#include <filesystem>

#include "history/recorded_scans.h"

namespace requite::test {
namespace {

struct OneSite : RecordedScans {
  OneSite() {
    Linking = {"a.example/"};
    AddSites("main.example", {"a.example"});
    Save();
  }
};

std::string FileWithVersion(int version) {
  const TemporaryFolder folder;
  {
    SqliteStore store(folder.File("x.db"), SqliteStore::Open::ToWrite);
    store.Run(("CREATE TABLE t(a); PRAGMA user_version = " + std::to_string(version)).c_str());
  }
  return ReadFile(folder.File("x.db"));
}

struct BadFile {
  std::string Bytes;
  const char* Words;
};

TEST(HistoryFailures, AFileThatIsNotOursIsLeftAsItIs) {
  for (const BadFile& row :
       {BadFile{FileWithVersion(2),
                "history.db was made by a newer version of this program, and is left as it is"},
        {FileWithVersion(0), "history.db is not a history of this program, and is left as it is"},
        {"This is text, and long enough to be taken for the header of a database by no reader.",
         "history.db is damaged. Move it away, and the next scan begins a new one"},
        {FileWithVersion(1).substr(0, 700),
         "history.db is damaged. Move it away, and the next scan begins a new one"}}) {
    OneSite rig;
    const std::string path = rig.Folder.File("history.db");
    WriteFile(path, row.Bytes);
    rig.Scan();
    ASSERT_EQ(rig.Notices.size(), 1U) << row.Words;
    EXPECT_EQ(rig.Notices[0], std::string("This scan is not in the history: ") + row.Words + ".");
    EXPECT_EQ(ReadFile(path), row.Bytes) << row.Words;
    EXPECT_EQ(Rows(rig.Form.Sites.List3).size(), 1U);
    EXPECT_FALSE(rig.Form.Changed);
  }
  OneSite rig;
  std::filesystem::create_directory(rig.Folder.File("history.db"));
  rig.Scan();
  EXPECT_EQ(rig.Notices,
            std::vector<std::string>{"This scan is not in the history: history.db cannot be opened."});
}

}  // namespace
}  // namespace requite::test
