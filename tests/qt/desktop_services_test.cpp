// SPDX-License-Identifier: MIT
// The program's folder and its filling, figures and dates by locale, and sounds by a player program.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QEvent>
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "qt/loop_rig.h"
#include "qt/services/code_page.h"
#include "qt/services/desktop_shell.h"
#include "qt/services/sound_process.h"
#include "qt/services/system_clock.h"
#include "support/fakes.h"
#include "system/program_folder.h"

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

QString WithTwoDecimals(const char* locale, double value) {
  return ToUnicode(SystemClock(QLocale(QString::fromLatin1(locale))).TwoDecimals(value));
}

TEST(SystemClockTest, AFigureHasAsciiDigitsAndSignsOfTheCodePageInEveryLocale) {
  EXPECT_EQ(WithTwoDecimals("C", 1.005), "1.01") << "halves go away from zero";
  EXPECT_EQ(WithTwoDecimals("en_US", -1002.675), "-1,002.68");
  EXPECT_EQ(WithTwoDecimals("de_DE", 1006), "1.006,00");
  EXPECT_EQ(WithTwoDecimals("fr_FR", 1006), QString::fromUtf8("1\u00A0006,00"));
  EXPECT_EQ(WithTwoDecimals("ar_EG", 1006), QString::fromUtf8("1\u2019006,00"));
  EXPECT_EQ(WithTwoDecimals("fa_IR", 33.33), "33,33");
  EXPECT_EQ(WithTwoDecimals("bn_BD", 1234567), "12,34,567.00");
  for (const QLocale& locale :
       QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
    const std::string figure = SystemClock(locale).TwoDecimals(9876543.21);
    std::string digits;
    std::copy_if(figure.begin(), figure.end(), std::back_inserter(digits),
                 [](char each) { return each >= '0' && each <= '9'; });
    EXPECT_EQ(digits, "987654321") << locale.name().toStdString();
    EXPECT_EQ(figure.find('?'), std::string::npos) << locale.name().toStdString() << " " << figure;
    const char decimal = figure[figure.size() - 3];
    EXPECT_EQ(std::count(figure.begin(), figure.end(), decimal), 1) << locale.name().toStdString();
  }
}

TEST(SystemClockTest, ADateOrTimeThatDoesNotFitTheCodePageIsGivenInItsIsoForm) {
  for (const QLocale& locale :
       QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
    SystemClock clock(locale);
    EXPECT_EQ((clock.ShortDate() + clock.ShortTime()).find('?'), std::string::npos)
        << locale.name().toStdString();
  }
  SystemClock arabic(QLocale(QStringLiteral("ar_EG")));
  EXPECT_TRUE(QDate::fromString(ToUnicode(arabic.ShortDate()), Qt::ISODate).isValid()) << arabic.ShortDate();
  EXPECT_TRUE(QTime::fromString(ToUnicode(arabic.ShortTime()), QStringLiteral("HH:mm")).isValid());
  SystemClock german(QLocale(QStringLiteral("de_DE")));
  EXPECT_TRUE(QDate::fromString(ToUnicode(german.ShortDate()), QStringLiteral("dd.MM.yy")).isValid());
}

/// Scripts in a folder that is looked through for programs; each writes down what it is started for.
class ScriptsTest : public testing::Test {
 protected:
  ~ScriptsTest() override { ::setenv("PATH", path_.c_str(), 1); }

  void LookForProgramsIn(const std::string& folders) { ::setenv("PATH", folders.c_str(), 1); }
  void Install(const char* program, const std::string& script) {
    MakeFile(folder_.File(program), "#!/bin/sh\n" + script + "\n");
    fs::permissions(folder_.File(program), fs::perms::owner_all);
  }
  [[nodiscard]] std::vector<std::string> Log() const {
    std::ifstream log(folder_.File("log"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(log, line);) lines.push_back(line);
    return lines;
  }

  LoopRig rig_;
  TemporaryFolder folder_;
  std::string path_ = std::getenv("PATH");
};

/// The player plays for ever.
class SoundProcessTest : public ScriptsTest {
 protected:
  SoundProcessTest() {
    MakeFile(folder_.File("finished.wav"), "RIFF");
    LookForProgramsIn(folder_.Folder.Path + ":" + path_);
    Install("pw-play", "echo \"$$\" >> '" + folder_.File("log") + "'\nexec sleep 100");
  }
  [[nodiscard]] bool Plays(std::size_t player) const { return ::kill(std::stoi(Log()[player]), 0) == 0; }
};

TEST_F(SoundProcessTest, ASecondSoundCutsOffTheFirst) {
  SoundProcess sounds;
  sounds.PlaySoundFile(folder_.File("missing.wav"));
  sounds.PlaySoundFile(folder_.File("finished.wav"));
  ASSERT_TRUE(rig_.Until([&] { return Log().size() == 1; }));
  sounds.PlaySoundFile(folder_.File("finished.wav"));
  ASSERT_TRUE(rig_.Until([&] { return Log().size() == 2; }));
  EXPECT_FALSE(Plays(0));
  EXPECT_TRUE(Plays(1));
}

/// The desktop's opener is a script, and nothing else can be found.
class DesktopShellTest : public ScriptsTest {
 protected:
  DesktopShellTest() {
    fs::create_symlink("/bin/sh", folder_.File("sh"));
    LookForProgramsIn(folder_.Folder.Path);
    shell_.OnFailed = [this](const QString& what) { failed_.push_back(what.toStdString()); };
  }
  ~DesktopShellTest() override {
    // An opener outlives the shell, and so does its object; here it ends first.
    EXPECT_TRUE(rig_.Until([] { return !HasChildren(); }));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  static bool HasChildren() {
    siginfo_t info{};
    return ::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0;
  }

  /// An opener that notes what it is to open, and ends with this status.
  void InstallOpener(int status) {
    Install("xdg-open", "echo \"$1\" >> '" + folder_.File("log") + "'\nexit " + std::to_string(status));
  }
  bool Opens(const std::string& what) {
    return rig_.Until([&] {
      const auto log = Log();
      return !log.empty() && log.back() == what;
    });
  }
  bool Fails(const std::string& what) {
    return rig_.Until([&] { return !failed_.empty() && failed_.back() == what; });
  }

  std::vector<std::string> failed_;
  DesktopShell shell_;
};

TEST_F(DesktopShellTest, AnAddressWithoutASchemeIsOneOfTheWebAndOtherSchemesAreRefused) {
  InstallOpener(0);
  shell_.OpenUrlOutside("myhttpd.example/y");
  EXPECT_TRUE(Opens("http://myhttpd.example/y"));
  shell_.OpenUrlOutside("HTTPS://a.example/?u=ftp://b");
  EXPECT_TRUE(Opens("https://a.example/?u=ftp://b"));
  EXPECT_TRUE(failed_.empty());
  shell_.OpenUrlOutside("file:///etc/http");
  EXPECT_TRUE(Fails("file:///etc/http"));
}

TEST_F(DesktopShellTest, WhatNothingOpensIsTold) {
  shell_.OpenFile("/without/opener");
  EXPECT_TRUE(Fails("/without/opener"));
  InstallOpener(4);
  shell_.OpenFile("/opener/fails");
  EXPECT_TRUE(Fails("/opener/fails"));
  shell_.OpenDocument("/no/program/for/Help.chm");
  EXPECT_TRUE(Fails("/no/program/for/Help.chm"));
  InstallOpener(0);
  Install("xdg-mime", "echo viewer.desktop");
  shell_.OpenDocument("/a/Help.chm");
  EXPECT_TRUE(Opens("/a/Help.chm"));
}

}  // namespace
}  // namespace requite::test
