// SPDX-License-Identifier: MIT
// The fragments that a scan takes from `filetypes.txt`, however the file was edited.
#include "model/file_types.h"

#include <gtest/gtest.h>

#include "support/failure_number.h"
#include "support/fakes.h"

namespace requite::test {
namespace {

struct Row {
  const char* What;
  std::string_view Text;
  std::vector<std::string> Fragments;
};

TEST(FileTypes, EachLineIsAFragmentOrSeveral) {
  const TemporaryFolder folder;
  EXPECT_EQ(NumberOf([&] { static_cast<void>(ReadFileTypes(folder.Folder)); }), 53) << "without a file";
  for (const Row& row :
       {Row{"in order", ".html\r\n.htm\r\n.php\r\n", {".html", ".htm", ".php"}},
        {"with lone line feeds", ".html\n.htm\n\n.php", {".html", ".htm", ".php"}},
        {"empty lines and single blanks go, two blanks stay",
         "\r\n .html\r\n \r\n\r\n  \r\n",
         {" .html", "  "}},
        {"an empty file", "", {}},
        {"nothing but blanks", "\r\n \r\n", {}},
        {"a bar separates, and one at the end is dropped", ".a|.b\r\n.c|\r\n", {".a", ".b", ".c"}},
        {"two bars at the end", ".c||\r\n", {".c", ""}},
        {"a bar alone", "|\r\n", {}}}) {
    WriteFile(folder.File("filetypes.txt"), row.Text);
    EXPECT_EQ(ReadFileTypes(folder.Folder), row.Fragments) << row.What;
  }
}

}  // namespace
}  // namespace requite::test
