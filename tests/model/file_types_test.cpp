// SPDX-License-Identifier: MIT
// The fragments that a scan takes from `filetypes.txt`, however the file was edited.
#include "model/file_types.h"

#include <gmock/gmock.h>

#include "support/failure_number.h"
#include "support/fakes.h"

namespace requite::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FileTypes : public testing::Test {
 protected:
  std::vector<std::string> Read(std::string_view text) {
    WriteFile(folder_.File("filetypes.txt"), text);
    return ReadFileTypes(folder_.Folder);
  }
  TemporaryFolder folder_;
};

TEST_F(FileTypes, KeepsTheOrderOfTheLines) {
  EXPECT_THAT(Read(".html\r\n.htm\r\n.php\r\n"), ElementsAre(".html", ".htm", ".php"));
  EXPECT_THAT(Read(".html\n.htm\n\n.php"), ElementsAre(".html", ".htm", ".php"));
}

TEST_F(FileTypes, SkipsEmptyLinesAndSingleBlanksButNotTwoBlanks) {
  EXPECT_THAT(Read("\r\n .html\r\n \r\n\r\n  \r\n"), ElementsAre(" .html", "  "));
  EXPECT_THAT(Read(""), IsEmpty());
  EXPECT_THAT(Read("\r\n \r\n"), IsEmpty());
}

TEST_F(FileTypes, ABarInALineMakesSeveralFragmentsAndOneAtTheEndGoes) {
  EXPECT_THAT(Read(".a|.b\r\n.c|\r\n"), ElementsAre(".a", ".b", ".c"));
  EXPECT_THAT(Read(".c||\r\n"), ElementsAre(".c", ""));
  EXPECT_THAT(Read("|\r\n"), IsEmpty());
}

TEST_F(FileTypes, AMissingFileIsAFailure) {
  EXPECT_EQ(NumberOf([&] { static_cast<void>(ReadFileTypes(folder_.Folder)); }), 53);
}

}  // namespace
}  // namespace requite::test
