// SPDX-License-Identifier: MIT
// The program's folder and its filling, and sounds by a player program.
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "shell/qt/loop_rig.h"
#include "shell/qt/program_folder.h"
#include "shell/qt/sound_process.h"
#include "support/fakes.h"

namespace requite::test {
namespace {

namespace fs = std::filesystem;

void MakeFile(const std::string& path, std::string_view text) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << text;
}

class ProgramFolderTest : public testing::Test {
 protected:
  ProgramFolderTest() {
    MakeFile(folder_.File("share/filetypes.txt"), ".zip\r\n");
    MakeFile(folder_.File("share/sounds/finished.wav"), "RIFF");
    fs::create_directory(folder_.File("bin"));
  }

  TemporaryFolder folder_;
  ProgramPlaces places_{folder_.File("bin"), folder_.File("share"), folder_.File("home/data/requite")};
};

TEST_F(ProgramFolderTest, ACopyThatWasNotInstalledUsesItsOwnFolderWhereItCan) {
  places_.Executable = places_.Installed;
  EXPECT_EQ(ChooseProgramFolder(places_).Path, folder_.File("share"));
  EXPECT_FALSE(fs::exists(places_.UserData));
  places_.Executable = places_.Installed = folder_.File("no/such/folder");
  EXPECT_EQ(ChooseProgramFolder(places_).Path, places_.UserData);
}

TEST_F(ProgramFolderTest, AnInstalledProgramFillsWhatIsMissingInTheUsersFolder) {
  ASSERT_EQ(::access(places_.Executable.c_str(), W_OK), 0)
      << "as it is for root, whose files go there neither";
  EXPECT_EQ(ChooseProgramFolder(places_).Path, places_.UserData);
  EXPECT_TRUE(fs::exists(places_.UserData + "/sounds/finished.wav"));
  EXPECT_TRUE(fs::is_empty(places_.Executable));
  fs::remove(places_.UserData + "/filetypes.txt");
  WriteFile(places_.UserData + "/sounds/finished.wav", "the user's own");
  EXPECT_EQ(ChooseProgramFolder(places_).Path, places_.UserData);
  EXPECT_EQ(ReadFile(places_.UserData + "/filetypes.txt"), ReadFile(folder_.File("share/filetypes.txt")));
  EXPECT_EQ(ReadFile(places_.UserData + "/sounds/finished.wav"), "the user's own");
}

TEST(DefaultSettingsPathTest, OnlyAnAbsoluteFolderOfTheEnvironmentCounts) {
  ::setenv("HOME", "/home/someone", 1);
  ::setenv("XDG_CONFIG_HOME", "/elsewhere", 1);
  EXPECT_EQ(DefaultSettingsPath(), "/elsewhere/requite/settings");
  ::setenv("XDG_CONFIG_HOME", "relative", 1);
  EXPECT_EQ(DefaultSettingsPath(), "/home/someone/.config/requite/settings");
}

/// A player that writes down what it plays, and then plays for ever.
class SoundProcessTest : public testing::Test {
 protected:
  SoundProcessTest() : path_(std::getenv("PATH")) {
    MakeFile(folder_.File("finished.wav"), "RIFF");
    ::setenv("PATH", (folder_.Folder.Path + ":" + path_).c_str(), 1);
  }
  ~SoundProcessTest() override { ::setenv("PATH", path_.c_str(), 1); }

  void InstallPlayer() {
    const std::string log = folder_.File("log");
    MakeFile(folder_.File("pw-play"), "#!/bin/sh\necho \"$$\" >> '" + log + "'\nexec sleep 100\n");
    fs::permissions(folder_.File("pw-play"), fs::perms::owner_all);
  }
  /// The players started so far, by their process numbers.
  [[nodiscard]] std::vector<pid_t> Players() const {
    std::ifstream log(folder_.File("log"));
    std::vector<pid_t> players;
    for (pid_t player = 0; log >> player;) players.push_back(player);
    return players;
  }

  LoopRig rig_;
  TemporaryFolder folder_;
  std::string path_;
};

TEST_F(SoundProcessTest, ASecondSoundCutsOffTheFirst) {
  InstallPlayer();
  SoundProcess sounds;
  sounds.PlaySoundFile(folder_.File("missing.wav"));
  sounds.PlaySoundFile(folder_.File("finished.wav"));
  ASSERT_TRUE(rig_.Until([&] { return Players().size() == 1; }));
  sounds.PlaySoundFile(folder_.File("finished.wav"));
  ASSERT_TRUE(rig_.Until([&] { return Players().size() == 2; }));
  EXPECT_NE(::kill(Players()[0], 0), 0) << "the first player is gone";
  EXPECT_EQ(::kill(Players()[1], 0), 0) << "the second one plays";
}

TEST_F(SoundProcessTest, WithoutAPlayerThereIsSilence) {
  ::setenv("PATH", folder_.Folder.Path.c_str(), 1);
  SoundProcess sounds;
  sounds.PlaySoundFile(folder_.File("finished.wav"));
  rig_.Settle();
  EXPECT_TRUE(Players().empty());
}

}  // namespace
}  // namespace requite::test
