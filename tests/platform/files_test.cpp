// SPDX-License-Identifier: MIT
// File operations and their failure numbers, in a folder of the test's own.
#include "platform/whole_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "support/failure_number.h"
#include "support/fakes.h"

namespace requite::test {
namespace {

namespace fs = std::filesystem;

TEST(Files, WriteReplacesAppendAddsReadGivesEveryByte) {
  const TemporaryFolder folder;
  std::string allBytes;
  for (int i = 0; i < 100000; ++i) allBytes += static_cast<char>(i * 7);
  WriteFile(folder.File("a"), allBytes);
  EXPECT_EQ(ReadFile(folder.File("a")), allBytes);
  WriteFile(folder.File("a"), "short");
  AppendToFile(folder.File("a"), " and more");
  EXPECT_EQ(ReadFile(folder.File("a")), "short and more");
  AppendToFile(folder.File("new"), "x");
  EXPECT_EQ(ReadFile(folder.File("new")), "x");
  WriteFile(folder.File("a"), "");
  EXPECT_EQ(ReadFile(folder.File("a")), "");
  DeleteFile(folder.File("a"));
  EXPECT_FALSE(FileExists(folder.File("a")));
}

TEST(Files, FailuresHaveTheClassicNumbers) {
  const TemporaryFolder folder;
  fs::create_directory(folder.File("sub"));
  WriteFile(folder.File("plain"), "x");
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder.File("none")); }), 53);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder.File("none/x")); }), 76);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder.File("plain/x")); }), 76);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder.File("sub")); }), 75);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(""); }), 53);
  EXPECT_EQ(NumberOf([&] { WriteFile(folder.File("none/x"), "x"); }), 76);
  EXPECT_EQ(NumberOf([&] { WriteFile(folder.File("sub"), "x"); }), 75);
  EXPECT_EQ(NumberOf([&] { AppendToFile(folder.File("none/x"), "x"); }), 76);
  EXPECT_EQ(NumberOf([&] { DeleteFile(folder.File("none")); }), 53);
  EXPECT_EQ(NumberOf([&] { DeleteFile(folder.File("none/x")); }), 76);
  EXPECT_EQ(NumberOf([&] { DeleteFile("/proc/version"); }), 70);
  EXPECT_EQ(NumberOf([&] { AppendToFile("/dev/full", "x"); }), 61);
}

TEST(Files, WhatIsNoNormalFileIsRefusedAtOnce) {
  const TemporaryFolder folder;
  ASSERT_EQ(::mkfifo((folder.File("pipe")).c_str(), 0600), 0);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder.File("pipe")); }), 75);
  EXPECT_EQ(NumberOf([&] { WriteFile(folder.File("pipe"), "x"); }), 75);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile("/dev/zero"); }), 75);
  // A hole of 4 GiB takes no room on the disk, but would as a text.
  WriteFile(folder.File("huge"), "");
  ASSERT_EQ(::truncate((folder.File("huge")).c_str(), off_t{4} << 30U), 0);
  EXPECT_EQ(NumberOf([&] { (void)ReadFile(folder.File("huge")); }), 7);
}

TEST(Files, SizesThatTheSystemDoesNotTellAreReadToTheEnd) {
  EXPECT_THAT(ReadFile("/proc/self/status"), testing::HasSubstr("VmRSS"));
}

TEST(xfileExists, HoldsForNormalFilesOnly) {
  const TemporaryFolder folder;
  for (const char* name : {"a.htm", "b [1].htm", ".hidden"}) WriteFile(folder.File(name), "");
  fs::create_directory(folder.File("sub"));
  ASSERT_EQ(::mkfifo((folder.File("pipe")).c_str(), 0600), 0);
  fs::create_symlink(folder.File("gone"), folder.File("dangling"));
  EXPECT_TRUE(xfileExists(folder.File("a.htm")));
  EXPECT_TRUE(xfileExists(folder.File("b [1].htm")));
  EXPECT_TRUE(xfileExists(folder.File("sub/../a.htm")));
  for (const char* name :
       {"*.htm", "?.htm", "a.ht", "sub", "", "none/a.htm", "a.htm/", ".hidden", "pipe", "dangling"}) {
    EXPECT_FALSE(xfileExists(folder.File(name))) << name;
  }
  EXPECT_FALSE(xfileExists(""));
  EXPECT_TRUE(FileExists(folder.File(".hidden")));
  EXPECT_FALSE(FileExists(folder.File("sub")));
}

TEST(xcopyFile, OverwritesAndKeepsSilent) {
  const TemporaryFolder folder;
  WriteFile(folder.File("source"), "new");
  WriteFile(folder.File("target"), "old and longer");
  xcopyFile(folder.File("source"), folder.File("target"));
  EXPECT_EQ(ReadFile(folder.File("target")), "new");
  xcopyFile(folder.File("none"), folder.File("target"));
  xcopyFile(folder.File("source"), folder.File("none/target"));
  xcopyFile(folder.File("source"), folder.Folder.Path);
  xcopyFile(folder.File("source"), folder.File("source"));
  EXPECT_EQ(ReadFile(folder.File("target")), "new");
  EXPECT_EQ(ReadFile(folder.File("source")), "new");
}

TEST(MoveToBackup, KeepsTheNewestOfEachNameAlsoAcrossFileSystems) {
  // Where there is no memory file system this is the plain move once more.
  const fs::path memory = fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path();
  for (const fs::path& place : {fs::temp_directory_path(), memory}) {
    const TemporaryFolder program(place);
    const TemporaryFolder projects;
    for (const char* text : {"first", "second"}) {
      WriteFile(projects.File("a.prj"), text);
      MoveToBackup(program.Folder, projects.File("a.prj"));
      EXPECT_FALSE(FileExists(projects.File("a.prj"))) << place;
      EXPECT_EQ(ReadFile(program.File("Backup/a.prj")), text) << place;
      EXPECT_FALSE(FileExists(program.File("Backup/a.prj.new"))) << place;
    }
  }
}

TEST(MoveToBackup, AFileFromTheBackupsIsGoneToo) {
  const TemporaryFolder program;
  const ProgramFolder& folder = program.Folder;
  fs::create_directory(program.File("Backup"));
  WriteFile(program.File("Backup/a.prj"), "x");
  MoveToBackup(folder, program.File("Backup/a.prj"));
  EXPECT_FALSE(FileExists(program.File("Backup/a.prj")));
  EXPECT_EQ(ReadFile(program.File("Backup/a.prj.old")), "x");
}

TEST(MoveToBackup, AFailureLeavesTheFileInPlace) {
  const TemporaryFolder program;
  const ProgramFolder& folder = program.Folder;
  WriteFile(program.File("a.prj"), "x");
  EXPECT_EQ(NumberOf([&] { MoveToBackup(folder, program.File("none.prj")); }), 53);
  EXPECT_EQ(NumberOf([&] { MoveToBackup(ProgramFolder{program.File("none")}, program.File("a.prj")); }), 76);
  WriteFile(program.File("Backup"), "in the way");
  EXPECT_EQ(NumberOf([&] { MoveToBackup(folder, program.File("a.prj")); }), 76);
  DeleteFile(program.File("Backup"));
  fs::create_directories(program.File("Backup/a.prj"));
  EXPECT_EQ(NumberOf([&] { MoveToBackup(folder, program.File("a.prj")); }), 75);
  EXPECT_EQ(NumberOf([&] { MoveToBackup(folder, program.File("Backup")); }), 75);
  EXPECT_EQ(ReadFile(program.File("a.prj")), "x");
}

}  // namespace
}  // namespace requite::test
