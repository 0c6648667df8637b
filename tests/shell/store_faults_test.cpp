// SPDX-License-Identifier: MIT
// Settings, auto-save and the harvesters' store on a disk that fails at any one call,
// fills up at it, or loses power after it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "harvest/harvest_rig.h"
#include "support/at_every_call.h"
#include "system/settings_file.h"

namespace requite::test {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;

/// A settings file with one value to be kept and one to be changed; a long one is compacted when it is
/// opened.
std::string OldSettings(bool isLong) {
  std::string text = "requite-settings 1\nold=kept\nvalue=1\n";
  while (isLong && text.size() <= SettingsFile::kCompactionSize) {
    text += "filler=" + std::string(10'000, 'f') + "\n";
  }
  return text;
}

TEST(StoreFaults, SettingsAreKeptAndAChangeIsSavedOrToldOnce) {
  for (const bool isLong : {false, true}) {
    const int calls = AtEveryCall([isLong](FailingDisk& disk) {
      const TemporaryFolder folder;
      const std::string path = folder.File("settings");
      WriteFile(path, OldSettings(isLong));
      int told = 0;
      {
        std::optional<SettingsFile> store;
        disk.Lets([&] {
          store.emplace(path);
          store->OnUnsaved = [&told](const std::string&, int) { ++told; };
          store->Write("value", "2");
          store->Write("second", "3");
          EXPECT_EQ(store->Read("value"), "2");
        });
        EXPECT_LE(told, 1);
        SettingsFile after(path);
        EXPECT_EQ(after.Read("old"), "kept");
        EXPECT_THAT(after.Read("value"), AnyOf("1", "2"));
        EXPECT_TRUE(told == 1 || after.Read("value") == "2");
        EXPECT_TRUE(told == 1 || after.Read("second") == "3");
        store->Write("later", "4");
      }
      SettingsFile last(path);
      EXPECT_EQ(last.Read("old"), "kept");
      EXPECT_EQ(last.Read("value"), "2") << "the disk is well again";
      EXPECT_EQ(last.Read("second"), "3");
      EXPECT_FALSE(FileExists(path + ".damaged-1"));
    });
    EXPECT_GE(calls, 3);
  }
}

TEST(StoreFaults, APowerCutLeavesTheSettings) {
  for (const bool isLong : {false, true}) {
    const TemporaryFolder folder;
    const std::string path = folder.File("settings");
    const std::string old = OldSettings(isLong);
    WriteFile(path, old);
    std::vector<FileEvent> events;
    {
      const FileFaults faults;
      SettingsFile store(path);
      store.Write("value", "2");
      events = faults.Events();
    }
    for (std::size_t count = 0; count <= events.size(); ++count) {
      ForEachPowerCut({{path, old}}, events, count, [&](const DiskState& disk) {
        ASSERT_TRUE(disk.contains(path)) << count;
        WriteFile(path, disk.at(path));
        SettingsFile store(path);
        ASSERT_EQ(store.Read("old"), "kept") << count;
        ASSERT_THAT(store.Read("value"), AnyOf("1", "2")) << count;
        ASSERT_FALSE(FileExists(path + ".damaged-1")) << count;
      });
    }
  }
}

TEST(StoreFaults, AnAddressIsStoredOrRefusedAndTheOthersStay) {
  const int calls = AtEveryCall([](FailingDisk& disk) {
    HarvestRig rig;
    rig.Form.Database.AddEmail("kept@b.c");
    bool added = false;
    disk.Lets([&] { added = rig.Form.Database.AddEmail("new@b.c"); }, rig.Database());
    EXPECT_EQ(rig.Sql("pragma integrity_check"), "ok;");
    const std::string rows = rig.Sql("select email from emails");
    EXPECT_THAT(rows, added ? AnyOf("kept@b.c;new@b.c;", "") : AnyOf("kept@b.c;", "kept@b.c;new@b.c;"));
  });
  EXPECT_GT(calls, 5) << "the engine's calls come here";
}

}  // namespace
}  // namespace requite::test
