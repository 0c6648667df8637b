// SPDX-License-Identifier: MIT
// Texts larger than what is kept of them in memory, on disks that take them and on full ones.
#include "platform/spooled_text.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>

#include "support/failure_number.h"
#include "support/fakes.h"

namespace requite::test {
namespace {

/// Adds pieces that differ until the text has `size` bytes or more, and returns what it should be.
std::string Fill(SpooledText& text, std::size_t size) {
  std::string whole;
  for (int i = 0; whole.size() < size; ++i) {
    const std::string piece = std::to_string(i) + std::string(static_cast<std::size_t>(i % 700), '.');
    text.Append(piece);
    whole += piece;
  }
  return whole;
}

/// No file can grow beyond this size, as on a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(std::size_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

TEST(SpooledText, IsWrittenWholeAndLeavesNoOtherFile) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{5000}, 3 * SpooledText::kMostInMemory + 17}) {
    TemporaryFolder folder;
    std::filesystem::remove(folder.File("Project Files"));
    SpooledText text(folder.Folder.Path);
    const std::string whole = Fill(text, size);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Folder.Path));
    text.AppendTo(folder.File("one"));
    text.AppendTo(folder.File("two"));
    EXPECT_EQ(ReadFile(folder.File("one")), whole);
    EXPECT_EQ(ReadFile(folder.File("two")), whole);
  }
}

TEST(SpooledText, StaysInMemoryWhereNoFileCanBeMade) {
  TemporaryFolder folder;
  SpooledText text(folder.File("no such folder"));
  const std::string whole = Fill(text, 3 * SpooledText::kMostInMemory);
  text.AppendTo(folder.File("one"));
  EXPECT_EQ(ReadFile(folder.File("one")), whole);
}

TEST(SpooledText, AFullDiskCostsNoTextAndLeavesNoTornFile) {
  TemporaryFolder folder;
  WriteFile(folder.File("old"), "old");
  SpooledText text(folder.Folder.Path);
  std::string whole;
  {
    const FileSizeLimit full(SpooledText::kMostInMemory * 3 / 2);
    whole = Fill(text, 3 * SpooledText::kMostInMemory);
    EXPECT_NE(NumberOf([&] { text.AppendTo(folder.File("one")); }), 0);
    EXPECT_FALSE(FileExists(folder.File("one")));
    EXPECT_NE(NumberOf([&] { text.AppendTo(folder.File("old")); }), 0);
    EXPECT_EQ(ReadFile(folder.File("old")), "old");
  }
  text.AppendTo(folder.File("one"));
  EXPECT_EQ(ReadFile(folder.File("one")), whole);
}

}  // namespace
}  // namespace requite::test
