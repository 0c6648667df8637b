// SPDX-License-Identifier: MIT
// The settings journal: any bytes, sudden ends, damage, and several processes at once.
#include "system/settings_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>

#include "support/fakes.h"

namespace requite::test {
namespace {

namespace fs = std::filesystem;

class SettingsFileTest : public testing::Test {
 protected:
  TemporaryFolder folder_;
  std::string path_ = folder_.File("config/requite/settings");

  [[nodiscard]] std::string Stored() const { return ReadFile(path_); }
  void Store(std::string_view text) const {
    fs::create_directories(fs::path(path_).parent_path());
    WriteFile(path_, text);
  }
  [[nodiscard]] std::string Reread(std::string_view key) const {
    return SettingsFile(path_).Read(key).value_or("(none)");
  }
  /// A process that does the work and dies by the hardest signal.
  static pid_t Start(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child != 0) return child;
    work();
    ::kill(::getpid(), SIGKILL);
    ::_exit(1);
  }
  static void WaitFor(pid_t child) {
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
  }
};

TEST_F(SettingsFileTest, AnyBytesComeBackAndKeysFoldTheirCase) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  {
    SettingsFile store(path_);
    EXPECT_FALSE(store.Read("LastProject"));
    store.Write("txtAutoSave", "7");
    store.Write(all, all);
    store.Write("", "");
    store.Write("a=b\\", "c=d\\");
    EXPECT_EQ(store.Read("txtAutosave"), "7");
  }
  SettingsFile store(path_);
  EXPECT_EQ(store.Read("TXTAUTOSAVE"), "7");
  EXPECT_EQ(store.Read(all), all);
  EXPECT_EQ(store.Read(""), "");
  EXPECT_EQ(store.Read("A=B\\"), "c=d\\");
  store.Write("TXTautosave", "8");
  EXPECT_EQ(Reread("txtAutoSave"), "8");
}

TEST_F(SettingsFileTest, ItsFileIsForItsUserAlone) {
  SettingsFile(path_).Write("key", "value");
  struct stat status {};
  ASSERT_EQ(::stat(path_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  ASSERT_EQ(::stat(fs::path(path_).parent_path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(SettingsFileTest, AFileCutAtAnyByteKeepsTheRecordsBeforeTheCut) {
  std::vector<std::size_t> ends;
  {
    SettingsFile store(path_);
    for (const char* value : {"one", "t\nwo", "three"}) {
      store.Write("key", value);
      ends.push_back(Stored().size());
    }
  }
  const std::string whole = Stored();
  for (std::size_t cut = 0; cut <= whole.size(); ++cut) {
    SCOPED_TRACE(cut);
    Store(whole.substr(0, cut));
    const char* expected = cut >= ends[2]   ? "three"
                           : cut >= ends[1] ? "t\nwo"
                           : cut >= ends[0] ? "one"
                                            : "(none)";
    {
      SettingsFile store(path_);
      EXPECT_EQ(store.Read("key").value_or("(none)"), expected);
      store.Write("other", "value");
      EXPECT_EQ(store.Read("key").value_or("(none)"), expected);
    }
    EXPECT_EQ(Reread("key"), expected);
    EXPECT_EQ(Reread("other"), "value");
  }
  EXPECT_FALSE(fs::exists(path_ + ".damaged-1"));
}

TEST_F(SettingsFileTest, ADamagedFileIsSetAside) {
  SettingsFile(path_).Write("key", "value");
  const std::string sound = Stored();
  int number = 0;
  for (const std::string& damaged :
       {std::string("[General]\nkey=value\n"), std::string("no line end"), std::string(4096, '\0'),
        sound + "no record\n", sound + "key=\\q\n", sound + std::string(3, '\0') + "\n", "x" + sound}) {
    Store(damaged);
    const std::string aside = path_ + ".damaged-" + std::to_string(++number);
    SettingsFile store(path_);
    EXPECT_FALSE(store.Read("key")) << damaged;
    store.Write("new", "here");
    EXPECT_EQ(store.Read("new"), "here");
    EXPECT_TRUE(fs::exists(aside)) << damaged;
    EXPECT_EQ(fs::file_size(aside), damaged.size());
  }
  EXPECT_EQ(Reread("new"), "here");
}

TEST_F(SettingsFileTest, AnEndOfZeroBytesAfterAPowerCutIsDropped) {
  SettingsFile(path_).Write("key", "value");
  Store(Stored() + std::string(100, '\0'));
  EXPECT_EQ(Reread("key"), "value");
  SettingsFile(path_).Write("key", "newer");
  EXPECT_EQ(Reread("key"), "newer");
}

TEST_F(SettingsFileTest, StaleRecordsAreDroppedOnlyWhenNobodyElseUsesTheFile) {
  const std::string page(10'000, 'p');
  const auto writeMuch = [&](SettingsFile& store) {
    for (int i = 0; i < 200; ++i) store.Write("txtHTML1", page + std::to_string(i));
  };
  {
    SettingsFile store(path_);
    store.Write("key", "value");
    SettingsFile other(path_);
    writeMuch(store);
    EXPECT_GT(fs::file_size(path_), 200 * page.size());
    other.Write("other", "value");
    EXPECT_EQ(other.Read("txtHTML1"), page + "199");
  }
  {
    SettingsFile store(path_);
    EXPECT_LT(fs::file_size(path_), 2 * page.size());
    writeMuch(store);
    EXPECT_LT(fs::file_size(path_), SettingsFile::kCompactionSize * 2);
  }
  EXPECT_EQ(Reread("txtHTML1"), page + "199");
  EXPECT_EQ(Reread("key"), "value");
  EXPECT_EQ(Reread("other"), "value");
  EXPECT_FALSE(fs::exists(path_ + ".new"));
}

TEST_F(SettingsFileTest, ProcessesThatWriteAtOnceLoseNoValue) {
  constexpr int kProcesses = 4;
  constexpr int kRounds = 12;
  constexpr int kWrites = 60;
  std::vector<pid_t> children;
  for (int process = 0; process < kProcesses; ++process) {
    children.push_back(Start([&] {
      const std::string filler(300, 'f');
      // Opened again and again, so that the file is also exchanged while others come and go.
      for (int round = 0; round < kRounds; ++round) {
        SettingsFile store(path_);
        for (int i = 0; i < kWrites; ++i) {
          const std::string key = std::to_string(process) + "." + std::to_string(i);
          store.Write(key, std::to_string(round) + filler);
          if (store.Read(key) != std::to_string(round) + filler) store.Write("fault", key);
        }
      }
    }));
  }
  for (const pid_t child : children) WaitFor(child);
  SettingsFile store(path_);
  EXPECT_FALSE(store.Read("fault"));
  for (int process = 0; process < kProcesses; ++process) {
    for (int i = 0; i < kWrites; ++i) {
      const std::string key = std::to_string(process) + "." + std::to_string(i);
      EXPECT_EQ(store.Read(key).value_or("(none)").substr(0, 5), std::to_string(kRounds - 1) + "fff") << key;
    }
  }
  EXPECT_FALSE(fs::exists(path_ + ".damaged-1"));
}

TEST_F(SettingsFileTest, AFileThatCannotBeWrittenLeavesTheValuesForTheRunAndForLater) {
  Store("");
  fs::remove(path_);
  fs::create_directory(path_);  // nothing can be written here, even by the superuser
  SettingsFile store(path_);
  store.Write("key", "value");
  EXPECT_EQ(store.Read("key"), "value");
  fs::remove(path_);
  store.Write("other", "later");
  EXPECT_EQ(Reread("key"), "value");
  EXPECT_EQ(Reread("other"), "later");
}

TEST_F(SettingsFileTest, WhatMayWaitIsInTheFileAtTheEndOfTheSliceAndBeforeWhatIsWrittenAfterIt) {
  SettingsFile(path_).Write("key", "value");
  const std::string before = Stored();
  LateWork late;
  SettingsFile store(path_);
  store.PutOffWith(late);
  store.WriteSoon("count", "1");
  EXPECT_EQ(Stored(), before + "count=1\n") << "outside a slice nothing waits";
  const LateWork::Slice slice(late);
  for (const char* number : {"2", "3"}) {
    store.WriteSoon("count", number);
    store.WriteSoon("links", number);
    EXPECT_EQ(store.Read("COUNT"), number);
  }
  EXPECT_EQ(Stored(), before + "count=1\n");
  store.Write("key", "newer");
  EXPECT_EQ(Stored(), before + "count=1\ncount=3\nlinks=3\nkey=newer\n");
  late.Finish();
  store.WriteSoon("count", "4");
  late.Finish();
  late.Finish();
  EXPECT_EQ(Stored(), before + "count=1\ncount=3\nlinks=3\nkey=newer\ncount=4\n");
}

TEST_F(SettingsFileTest, AKillLosesOnlyWhatItsSliceHasPutOff) {
  WaitFor(Start([&] {
    LateWork late;
    SettingsFile store(path_);
    store.PutOffWith(late);
    const LateWork::Slice slice(late);
    store.WriteSoon("count", "1");
    store.Write("key", "value");
    store.WriteSoon("count", "2");
    late.Finish();
    store.WriteSoon("count", "3");
  }));
  EXPECT_EQ(Reread("count"), "2");
  EXPECT_EQ(Reread("key"), "value");
}

TEST_F(SettingsFileTest, WhatWaitedAndCannotBeWrittenIsToldAndKeptForLater) {
  LateWork late;
  SettingsFile store(path_);
  store.PutOffWith(late);
  int told = 0;
  store.OnUnsaved = [&](const std::string&, int) { ++told; };
  fs::remove_all(path_);
  fs::create_directory(path_);
  const LateWork::Slice slice(late);
  for (const char* number : {"1", "2"}) {
    store.WriteSoon("count", number);
    store.WriteSoon("links", number);
    late.Finish();
  }
  EXPECT_EQ(told, 1);
  fs::remove(path_);
  store.Write("key", "value");
  for (const char* key : {"count", "links"}) EXPECT_EQ(Reread(key), "2") << key;
  EXPECT_EQ(Reread("key"), "value");
}

TEST_F(SettingsFileTest, ADeletedFileComesBackWithTheNextWrite) {
  SettingsFile store(path_);
  store.Write("key", "value");
  fs::remove(path_);
  store.Write("other", "value");
  EXPECT_EQ(Reread("key"), "value");
  EXPECT_EQ(Reread("other"), "value");
}

TEST_F(SettingsFileTest, ALinkStaysALink) {
  const std::string link = folder_.File("link");
  SettingsFile(path_).Write("key", "value");
  fs::create_symlink(path_, link);
  {
    SettingsFile store(link);
    for (int i = 0; i < 100; ++i) store.Write("long", std::string(10'000, 'x'));
  }
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(Reread("key"), "value");
  EXPECT_EQ(Reread("long").size(), 10'000U);
}

}  // namespace
}  // namespace requite::test
