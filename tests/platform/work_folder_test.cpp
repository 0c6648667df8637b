// SPDX-License-Identifier: MIT
// Two scans in one program folder, and what they leave there.
#include "platform/work_folder.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/fakes.h"

namespace requite::test {
namespace {

TEST(WorkFolder, IsPrivateFromTheFirstMeetingWithAnotherScanToTheEnd) {
  const TemporaryFolder program;
  const std::string shared = program.File("html0.txt");
  WorkFolder first(program.Folder);
  first.Claim();
  first.Claim();
  EXPECT_EQ(first.File("html0.txt"), shared);
  std::string own;
  {
    WorkFolder second(program.Folder);
    EXPECT_EQ(second.File("html0.txt"), shared) << "no scan yet";
    second.Claim();
    own = second.File("html0.txt");
    EXPECT_TRUE(own.starts_with(program.Folder.Path + "/scan-")) << own;
    WriteFile(own, "page");
    WriteFile(second.File("tempreport.html"), "report");
    WorkFolder third(program.Folder);
    third.Claim();
    EXPECT_NE(third.File("html0.txt"), own);
    EXPECT_TRUE(FileExists(own)) << "it is no leftover";
    first.Release();
    second.Release();
    second.Claim();
    EXPECT_EQ(second.File("html0.txt"), own) << "its report is still shown";
  }
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(own).parent_path()));
  WorkFolder next(program.Folder);
  next.Claim();
  EXPECT_EQ(next.File("html0.txt"), shared);
}

TEST(WorkFolder, ClearsAwayWhatKilledProgramsLeftAndNothingElse) {
  const TemporaryFolder program;
  for (const char* name : {"scan-left00", "scan-mine00"})
    std::filesystem::create_directory(program.File(name));
  WriteFile(program.File("scan-left00/html0.txt"), "page");
  WriteFile(program.File("scan-mine00/notes.txt"), "notes");
  WorkFolder first(program.Folder);
  first.Claim();
  EXPECT_TRUE(FileExists(program.File("scan-left00/html0.txt"))) << "nobody is in the way";
  WorkFolder second(program.Folder);
  second.Claim();
  EXPECT_FALSE(std::filesystem::exists(program.File("scan-left00")));
  EXPECT_TRUE(FileExists(program.File("scan-mine00/notes.txt")));
}

TEST(WorkFolder, IsTheProgramsWhereNothingCanBeLockedOrMade) {
  const ProgramFolder nowhere{"/nowhere/at/all"};
  WorkFolder folder(nowhere);
  folder.Claim();
  EXPECT_EQ(folder.File("html0.txt"), "/nowhere/at/all/html0.txt");
}

}  // namespace
}  // namespace requite::test
