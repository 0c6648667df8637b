// SPDX-License-Identifier: MIT
// File operations and their failure numbers, in a folder of the test's own.
#include "platform/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "platform/runtime_failure.h"

namespace requite::test {
namespace {

namespace fs = std::filesystem;

/// A new folder that goes with the test.
class OwnFolder {
 public:
  explicit OwnFolder(const fs::path& where = fs::temp_directory_path()) {
    std::string name = where / "requite-files-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test");
    path_ = name;
  }
  ~OwnFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
  }
  OwnFolder(const OwnFolder&) = delete;
  OwnFolder& operator=(const OwnFolder&) = delete;

  [[nodiscard]] std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }
  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

template <class Action>
int NumberOf(Action action) {
  try {
    action();
    return 0;
  } catch (const RuntimeFailure& failure) {
    return failure.Number;
  }
}

TEST(Files, WriteReplacesAppendAddsReadGivesEveryByte) {
  const OwnFolder folder;
  std::string allBytes;
  for (int i = 0; i < 100000; ++i) allBytes += static_cast<char>(i * 7);
  WriteFile(folder / "a", allBytes);
  EXPECT_EQ(ReadFile(folder / "a"), allBytes);
  WriteFile(folder / "a", "short");
  AppendToFile(folder / "a", " and more");
  EXPECT_EQ(ReadFile(folder / "a"), "short and more");
  AppendToFile(folder / "new", "x");
  EXPECT_EQ(ReadFile(folder / "new"), "x");
  WriteFile(folder / "a", "");
  EXPECT_EQ(ReadFile(folder / "a"), "");
  DeleteFile(folder / "a");
  EXPECT_FALSE(FileExists(folder / "a"));
}

TEST(Files, FailuresHaveTheClassicNumbers) {
  const OwnFolder folder;
  fs::create_directory(folder / "sub");
  WriteFile(folder / "plain", "x");
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder / "none"); }), 53);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder / "none/x"); }), 76);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder / "plain/x"); }), 76);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder / "sub"); }), 75);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(""); }), 53);
  EXPECT_EQ(NumberOf([&] { WriteFile(folder / "none/x", "x"); }), 76);
  EXPECT_EQ(NumberOf([&] { WriteFile(folder / "sub", "x"); }), 75);
  EXPECT_EQ(NumberOf([&] { AppendToFile(folder / "none/x", "x"); }), 76);
  EXPECT_EQ(NumberOf([&] { DeleteFile(folder / "none"); }), 53);
  EXPECT_EQ(NumberOf([&] { DeleteFile(folder / "none/x"); }), 76);
  EXPECT_EQ(NumberOf([&] { DeleteFile("/proc/version"); }), 70);
  EXPECT_EQ(NumberOf([&] { AppendToFile("/dev/full", "x"); }), 61);
}

TEST(Files, WhatIsNoNormalFileIsRefusedAtOnce) {
  const OwnFolder folder;
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder / "pipe"); }), 75);
  EXPECT_EQ(NumberOf([&] { WriteFile(folder / "pipe", "x"); }), 75);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile("/dev/zero"); }), 75);
  // A hole of 4 GiB takes no room on the disk, but would as a text.
  WriteFile(folder / "huge", "");
  ASSERT_EQ(::truncate((folder / "huge").c_str(), off_t{4} << 30U), 0);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder / "huge"); }), 7);
}

TEST(Files, SizesThatTheSystemDoesNotTellAreReadToTheEnd) {
  EXPECT_THAT(ReadFile("/proc/self/status"), testing::HasSubstr("VmRSS"));
}

TEST(xfileExists, HoldsForNormalFilesOnly) {
  const OwnFolder folder;
  for (const char* name : {"a.htm", "b [1].htm", ".hidden"}) WriteFile(folder / name, "");
  fs::create_directory(folder / "sub");
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  fs::create_symlink(folder / "gone", folder / "dangling");
  EXPECT_TRUE(xfileExists(folder / "a.htm"));
  EXPECT_TRUE(xfileExists(folder / "b [1].htm"));
  EXPECT_TRUE(xfileExists(folder / "sub/../a.htm"));
  for (const char* name :
       {"*.htm", "?.htm", "a.ht", "sub", "", "none/a.htm", "a.htm/", ".hidden", "pipe", "dangling"}) {
    EXPECT_FALSE(xfileExists(folder / name)) << name;
  }
  EXPECT_FALSE(xfileExists(""));
  EXPECT_TRUE(FileExists(folder / ".hidden"));
  EXPECT_FALSE(FileExists(folder / "sub"));
}

TEST(xcopyFile, OverwritesAndKeepsSilent) {
  const OwnFolder folder;
  WriteFile(folder / "source", "new");
  WriteFile(folder / "target", "old and longer");
  xcopyFile(folder / "source", folder / "target");
  EXPECT_EQ(ReadFile(folder / "target"), "new");
  xcopyFile(folder / "none", folder / "target");
  xcopyFile(folder / "source", folder / "none/target");
  xcopyFile(folder / "source", folder.Path());
  xcopyFile(folder / "source", folder / "source");
  EXPECT_EQ(ReadFile(folder / "target"), "new");
  EXPECT_EQ(ReadFile(folder / "source"), "new");
}

TEST(FileNameOfPath, IsWhatStandsBehindTheLastSeparator) {
  EXPECT_EQ(FileNameOfPath("/home/me/a.prj"), "a.prj");
  EXPECT_EQ(FileNameOfPath("a.prj"), "a.prj");
  EXPECT_EQ(FileNameOfPath("/home/me/"), "");
  EXPECT_EQ(FileNameOfPath("C:\\x\\a.prj"), "C:\\x\\a.prj");
  EXPECT_EQ(FileNameOfPath(""), "");
  EXPECT_EQ(ProgramFolder{"/opt/x"}.File("sounds/a.wav"), "/opt/x/sounds/a.wav");
}

TEST(MoveToBackup, KeepsTheNewestOfEachName) {
  const OwnFolder program;
  const OwnFolder projects;
  const ProgramFolder folder{program.Path()};
  for (const char* text : {"first", "second"}) {
    WriteFile(projects / "a.prj", text);
    MoveToBackup(folder, projects / "a.prj");
    EXPECT_FALSE(FileExists(projects / "a.prj"));
    EXPECT_EQ(ReadFile(program / "Backup/a.prj"), text);
  }
  WriteFile(projects / "b.prj", "b");
  MoveToBackup(folder, projects / "b.prj");
  EXPECT_EQ(ReadFile(program / "Backup/a.prj"), "second");
}

TEST(MoveToBackup, WorksAcrossFileSystems) {
  // Where there is no memory file system this is the plain move once more.
  const fs::path elsewhere = fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path();
  const OwnFolder program(elsewhere);
  const OwnFolder projects;
  for (const char* text : {"first", "second"}) {
    WriteFile(projects / "a.prj", text);
    MoveToBackup(ProgramFolder{program.Path()}, projects / "a.prj");
    EXPECT_FALSE(FileExists(projects / "a.prj"));
    EXPECT_EQ(ReadFile(program / "Backup/a.prj"), text);
    EXPECT_FALSE(FileExists(program / "Backup/a.prj.new"));
  }
}

TEST(MoveToBackup, AFileFromTheBackupsIsGoneToo) {
  const OwnFolder program;
  const ProgramFolder folder{program.Path()};
  fs::create_directory(program / "Backup");
  WriteFile(program / "Backup/a.prj", "x");
  MoveToBackup(folder, program / "Backup/a.prj");
  EXPECT_FALSE(FileExists(program / "Backup/a.prj"));
  EXPECT_EQ(ReadFile(program / "Backup/a.prj.old"), "x");
}

TEST(MoveToBackup, AFailureLeavesTheFileInPlace) {
  const OwnFolder program;
  const ProgramFolder folder{program.Path()};
  WriteFile(program / "a.prj", "x");
  EXPECT_EQ(NumberOf([&] { MoveToBackup(folder, program / "none.prj"); }), 53);
  EXPECT_EQ(NumberOf([&] { MoveToBackup(ProgramFolder{program / "none"}, program / "a.prj"); }), 76);
  WriteFile(program / "Backup", "in the way");
  EXPECT_EQ(NumberOf([&] { MoveToBackup(folder, program / "a.prj"); }), 76);
  DeleteFile(program / "Backup");
  fs::create_directories(program / "Backup/a.prj");
  EXPECT_EQ(NumberOf([&] { MoveToBackup(folder, program / "a.prj"); }), 75);
  EXPECT_EQ(NumberOf([&] { MoveToBackup(folder, program / "Backup"); }), 75);
  EXPECT_EQ(ReadFile(program / "a.prj"), "x");
}

}  // namespace
}  // namespace requite::test
