// SPDX-License-Identifier: MIT
// The real requite-console against a real server on the loopback: exit statuses, outputs and files.
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <filesystem>
#include <memory>

#include "console/child_process.h"
#include "console/running_server.h"
#include "platform/text.h"
#include "support/fakes.h"

namespace requite {
namespace {

namespace fs = std::filesystem;
using test::ChildProcess;

constexpr const char* kFound = "rope-and-sail.example|1|||\r\n";
constexpr const char* kNothing = "seaside-walks.example|1|||\r\n";
constexpr const char* kSilent = "becalmed.example|1|||\r\n";

class ConsoleProgramTest : public testing::Test {
 protected:
  ConsoleProgramTest() { WriteFile(folder_.File("filetypes.txt"), ".htm\r\n.php\r\n"); }
  [[nodiscard]] std::vector<std::string> With(std::vector<std::string> arguments) const {
    const auto common =
        Split("--program-folder|" + folder_.Folder.Path + "|--settings|" + folder_.File("settings") +
                  "|--set|txtTimeout=30|--connect-to|::127.0.0.1:" + std::to_string(server_.Port()),
              "|");
    arguments.insert(arguments.end(), common.begin(), common.end());
    return arguments;
  }

  /// The arguments of a shell that runs the program by a line of its own, in which it is "$0" "$@".
  [[nodiscard]] std::vector<std::string> InShell(const std::string& line,
                                                 std::vector<std::string> arguments) const {
    arguments = With(std::move(arguments));
    arguments.insert(arguments.begin(), {"-c", line, REQUITE_CONSOLE});
    return arguments;
  }

  /// A project of one Main Site, ready to be scanned.
  std::string Project(const std::string& linkingSites) {
    WriteFile(project_, "harbour-books.example\r\n" + linkingSites + "HTML01:x\r\n\r\n");
    return project_;
  }

  [[nodiscard]] bool Has(const char* name) const { return FileExists(folder_.File(name)); }

  test::TemporaryFolder folder_;
  std::string project_ = folder_.File("a.prj");
  test::RunningServer server_;
};

TEST_F(ConsoleProgramTest, AScanWithEveryLinkFoundEndsWithZero) {
  ChildProcess scan(REQUITE_CONSOLE,
                    With({"scan", Project(kFound), "--report", folder_.File("r.html"), "--tab",
                          folder_.File("t.tab"), "--save", folder_.File("saved.prj")}));
  EXPECT_EQ(scan.Wait(), 0) << scan.Err;
  EXPECT_EQ(scan.Out,
            "Main\tLinking\tStatus\tNo.\tLink URL\n"
            "harbour-books.example\trope-and-sail.example\tDirect Link\t001\trope-and-sail.example\n");
  EXPECT_EQ(scan.Err,
            "Linking Site 1 of 1: rope-and-sail.example: 1 of 1 links\n"
            "1 site: 1 link back, 0 do not, 0 not reached\n");
  EXPECT_EQ(ReadFile(folder_.File("r.html")), ReadFile(folder_.File("tempreport.html")));
  EXPECT_EQ(ReadFile(folder_.File("t.tab")).rfind("Main\tLinking", 0), 0U);
  EXPECT_NE(ReadFile(folder_.File("saved.prj")).find("RESULT:2|harbour-books"), std::string::npos);
}

/// A library that is loaded without need costs every run more than the rest of its start.
TEST_F(ConsoleProgramTest, LibrariesAreLoadedWhenTheyAreNeededAndAMissingOneIsNamed) {
  // The system's loader notes each library on its way in.
  const auto scan = [&](const std::string& option) { return With({"scan", Project(kNothing), option}); };
  const auto run = [&](const std::string& environment, const std::vector<std::string>& arguments) {
    std::vector<std::string> all{"-c", environment + " exec \"$0\" \"$@\"", REQUITE_CONSOLE};
    all.insert(all.end(), arguments.begin(), arguments.end());
    auto child = std::make_unique<ChildProcess>("/bin/sh", all);
    child->Wait();
    return child;
  };
  const struct {
    std::string Option;
    std::vector<const char*> Loaded;
    std::string Locale = "C.UTF-8";
  } kRows[] = {{"--quiet", {}},
               {"--history", {"libsqlite3"}},
               {"--secure", {"libssl"}},
               {"--quiet", {"requite-locale", "libQt6Core"}, "de_DE.UTF-8"}};
  for (const auto& row : kRows) {
    const auto child = run("LD_DEBUG=files LC_ALL=" + row.Locale, scan(row.Option));
    for (const char* library : {"libcurl", "libssl", "libsqlite3", "requite-locale", "libQt6Core"}) {
      const bool wanted = std::find(row.Loaded.begin(), row.Loaded.end(), library) != row.Loaded.end();
      EXPECT_EQ(child->Err.find(library) != std::string::npos, wanted) << row.Option << ' ' << library;
    }
  }
  WriteFile(folder_.File("libssl.so.3"), "no library");
  const auto child = run("LD_LIBRARY_PATH=" + folder_.Folder.Path, scan("--secure"));
  EXPECT_NE(child->Err.find("A library is missing: " + folder_.File("libssl.so.3")), std::string::npos)
      << child->Err;
}

TEST_F(ConsoleProgramTest, AReportIsWrittenByTheLocaleAndALostLibraryOfLocalesIsNamed) {
  const std::string lone = folder_.File("lone");
  std::filesystem::copy(REQUITE_CONSOLE, lone);
  const auto scan = [&](const std::string& program) {
    std::vector<std::string> all{"-c", "LC_ALL=de_DE.UTF-8 exec \"$0\" \"$@\"", program};
    for (std::string& each : With({"scan", Project(kFound), "-q", "--report", folder_.File("r")}))
      all.push_back(std::move(each));
    auto child = std::make_unique<ChildProcess>("/bin/sh", all);
    child->Wait();
    return child;
  };
  static_cast<void>(scan(REQUITE_CONSOLE));
  EXPECT_NE(ReadFile(folder_.File("r")).find("100,00%"), std::string::npos);
  const auto child = scan(lone);
  EXPECT_NE(child->Err.find("A library is missing"), std::string::npos) << child->Err;
  EXPECT_NE(child->Err.find("requite-locale.so"), std::string::npos) << child->Err;
}

TEST_F(ConsoleProgramTest, AFileOnStandardOutputTakesThePlaceOfTheRows) {
  ChildProcess scan(REQUITE_CONSOLE,
                    With({"scan", Project(kFound), "-q", "--tab", "-", "--report", folder_.File("r")}));
  EXPECT_EQ(scan.Wait(), 0) << scan.Err;
  EXPECT_EQ(scan.Out,
            "Main\tLinking\tStatus\tNo.\tLink URL\r\n\r\n"
            "harbour-books.example\trope-and-sail.example\tDirect Link\t001\trope-and-sail.example\r\n\r\n");
  EXPECT_EQ(scan.Err, "");
  EXPECT_EQ(ReadFile(folder_.File("r")), ReadFile(folder_.File("tempreport.html")));
}

TEST_F(ConsoleProgramTest, APrivateRunLeavesTheSettingsAlone) {
  ChildProcess before(REQUITE_CONSOLE, With({"script"}), "put LastProject /\xc5\x81\xff.prj\n");
  EXPECT_EQ(before.Wait(), 0) << before.Err;
  const std::string settings = ReadFile(folder_.File("settings"));
  EXPECT_NE(settings.find("/\xc5\x81\xff.prj"), std::string::npos) << "a path keeps its bytes";
  ChildProcess scan(REQUITE_CONSOLE, With({"scan", Project(kFound), "--private", "--set", "cmbAdvance=0"}));
  EXPECT_EQ(scan.Wait(), 0) << scan.Err;
  EXPECT_EQ(ReadFile(folder_.File("settings")), settings);
  DeleteFile(folder_.File("settings"));
  ChildProcess none(REQUITE_CONSOLE, With({"script", "--private", "-"}), "get txtTimeout\n");
  EXPECT_EQ(none.Wait(), 0) << none.Err;
  EXPECT_EQ(none.Out, "30\n");
  EXPECT_FALSE(Has("settings"));
}

TEST_F(ConsoleProgramTest, ADamagedProjectIsOneLine) {
  ChildProcess scan(REQUITE_CONSOLE,
                    With({"scan", Project(std::string(kFound) + "RESULT:x|a|b|c\r\n"), "-q"}));
  EXPECT_EQ(scan.Wait(), 0) << scan.Err;
  EXPECT_EQ(scan.Err, "requite-console: \"" + project_ +
                          "\" is damaged: line 3 cannot be read, and nothing after it was loaded\n");
}

TEST_F(ConsoleProgramTest, AnInterruptStopsTheScanAndWritesTheFiles) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    ChildProcess scan(REQUITE_CONSOLE, With({"scan", Project(std::string(kFound) + kSilent), "--report",
                                             folder_.File("r.html"), "--tab", folder_.File("t.tab")}));
    ASSERT_TRUE(scan.WaitForErr("Linking Site 1 of 2")) << scan.Err;
    scan.Signal(signal);
    EXPECT_EQ(scan.Wait(), 130) << scan.Err;
    EXPECT_NE(scan.Out.find("rope-and-sail.example\tDirect Link"), std::string::npos) << scan.Out;
    EXPECT_EQ(scan.Out.find("becalmed"), std::string::npos)
        << "a stop writes no row for the site in progress";
    EXPECT_NE(scan.Err.find("1 of 2 sites: 1 link back"), std::string::npos) << scan.Err;
    for (const char* file : {"r.html", "t.tab"}) {
      ASSERT_TRUE(Has(file));
      DeleteFile(folder_.File(file));
    }
  }
}

TEST_F(ConsoleProgramTest, ClosedStreamsLeaveTheSettingsAlone) {
  for (int run = 0; run < 2; ++run) {
    ChildProcess scan("/bin/sh", InShell("exec \"$0\" \"$@\" <&- >&- 2>&-", {"scan", Project(kFound)}));
    EXPECT_EQ(scan.Wait(), 0);
  }
  EXPECT_FALSE(Has("settings.damaged-1"));
  EXPECT_EQ(ReadFile(folder_.File("settings")).find("rope-and-sail"), std::string::npos);
}

TEST_F(ConsoleProgramTest, LostOutputIsTold) {
  for (const char* argument : {"scan", "-h"}) {
    ChildProcess full("/bin/sh", InShell("exec \"$0\" \"$@\" >/dev/full", {argument, Project(kFound), "-q"}));
    EXPECT_EQ(full.Wait(), 2);
    EXPECT_EQ(full.Err, "requite-console: standard output: No space left on device\n");
  }
  // A reader that closes the pipe has seen enough.
  ChildProcess gone("/bin/sh", InShell("{ \"$0\" \"$@\"; echo $? >&2; } | :",
                                       {"scan", Project(kFound), "-q", "--report", folder_.File("r.html")}));
  EXPECT_EQ(gone.Wait(), 0);
  EXPECT_EQ(gone.Err, "0\n");
  EXPECT_TRUE(Has("r.html"));
}

TEST_F(ConsoleProgramTest, AnEndlessLineIsNoScript) {
  ChildProcess script(REQUITE_CONSOLE, With({"script", "/dev/zero"}));
  EXPECT_EQ(script.Wait(), 2);
  EXPECT_EQ(script.Err, "requite-console: line 1: longer than 1 MiB: this is no script\n");
}

TEST_F(ConsoleProgramTest, ARefusedScanWritesNothingItWasAskedFor) {
  const auto refused = [&](std::vector<std::string> arguments, const std::string& word) {
    arguments.insert(arguments.end(), {"--report", folder_.File("r.html")});
    ChildProcess scan(REQUITE_CONSOLE, With(arguments));
    EXPECT_EQ(scan.Wait(), 2) << word;
    EXPECT_NE(scan.Err.find(word), std::string::npos) << scan.Err;
    EXPECT_EQ(std::count(scan.Err.begin(), scan.Err.end(), '\n'), 1) << scan.Err;
    EXPECT_EQ(scan.Out, "");
    EXPECT_FALSE(Has("r.html"));
  };
  refused({"scan", folder_.File("gone.prj")}, "gone.prj");
  EXPECT_FALSE(Has("settings")) << "a refused command line writes no setting";
  refused({"scan", Project("")}, "Please enter at least one website to search for links.");
  WriteFile(project_, "");
  refused({"scan", project_}, "Please enter the Domain you want to find links to.");
  DeleteFile(folder_.File("filetypes.txt"));
  refused({"scan", Project(kFound)}, "filetypes.txt");
  WriteFile(folder_.File("filetypes.txt"), "");
  std::filesystem::remove(folder_.File("Project Files"));
  refused({"scan", Project(kFound)}, "Project Files");
}

TEST_F(ConsoleProgramTest, ATableComesInTheLettersOfItsProgram) {
  const auto import = [&](const std::string& table) {
    ChildProcess run(REQUITE_CONSOLE, With({"import", "-", "--main", "main.example", project_}), table);
    EXPECT_EQ(run.Wait(), table.find('\xD0') == std::string::npos ? 0 : 2) << run.Err;
    return run.Err;
  };
  EXPECT_EQ(import("\xEF\xBB\xBFurl,name\nm\xC3\xBCller.example,Caf\xC3\xA9 \xE2\x80\xAE\n"),
            "1 site added\n");
  EXPECT_EQ(import("url,name\nM\xDCLLER.example,\nb.example,Caf\xE9\n"),
            "requite-console: line 2: M\xC3\x9CLLER.example is in the list already\n"
            "1 site added, 1 was in the list already\n");
  EXPECT_NE(import("url\n\xD0\xBF.example\n").find("standard input: line 2: the website has letters"),
            std::string::npos);
  EXPECT_EQ(ReadFile(project_).rfind("main.example\r\nm\xFCller.example|1||Caf\xE9 ?|Caf\xE9 ?|Caf\xE9 ?\r\n"
                                     "b.example|1||Caf\xE9|Caf\xE9|\r\n",
                                     0),
            0U)
      << ReadFile(project_);
  ChildProcess endless(REQUITE_CONSOLE, With({"import", "/dev/zero", "--main", "main.example", project_}));
  EXPECT_EQ(endless.Wait(), 2);
  EXPECT_EQ(endless.Err, "requite-console: \"/dev/zero\": is larger than 64 MiB\n");
}

TEST_F(ConsoleProgramTest, AScanThatStandsStillIsStopped) {
  // The scan of all Main Sites cannot go on to one that has no Linking Sites.
  WriteFile(project_,
            std::string("harbour-books.example\r\n") + kFound + "NEXTSITE:empty.example\r\nHTML01:x\r\n");
  ChildProcess scan(REQUITE_CONSOLE, With({"scan", project_, "--report", folder_.File("r.html")}));
  EXPECT_EQ(scan.Wait(), 1) << scan.Err;
  EXPECT_NE(scan.Out.find("Direct Link"), std::string::npos);
  EXPECT_TRUE(Has("r.html"));
}

TEST_F(ConsoleProgramTest, AScriptHasItsOwnLetters) {
  ChildProcess script(
      REQUITE_CONSOLE, With({"script"}),
      "set txtDomain m\xC3\xBCller.example\nclick cmdAdd2\nanswer ok\nclick cmdSave\nmessages\n"
      "put note caf\xC3\xA9 \xE2\x82\xAC \xCE\xA9\nget note\n");
  EXPECT_EQ(script.Wait(), 0) << script.Err;
  const std::string path = folder_.File("Project Files/m\xC3\xBCllerexample.prj");
  EXPECT_TRUE(FileExists(path));
  // What the code page does not hold is a question mark.
  EXPECT_EQ(script.Out, "save\t\tm\xC3\xBCllerexample.prj\tfile " + path + "\ncaf\xC3\xA9 \xE2\x82\xAC ?\n");
}

TEST_F(ConsoleProgramTest, AFailureThatNothingHandlesEndsWithSeventyAndSavesTheWork) {
  const std::string nowhere = folder_.File("no such folder/a.prj");
  const std::string failing = "answer file " + nowhere + "\nanswer file " + nowhere + "\n";
  for (const std::string& last :
       {std::string("click cmdSave\n"), std::string("after 1 click cmdSave\nrun 5000\n")}) {
    ChildProcess script(
        REQUITE_CONSOLE, With({"script"}),
        "set txtDomain kept.example\nclick cmdAdd2\n" + failing + last + "echo not reached\n");
    EXPECT_EQ(script.Wait(), 70) << script.Err;
    EXPECT_EQ(script.Out, "");
    EXPECT_NE(script.Err.find("run-time failure 76"), std::string::npos) << script.Err;
    const std::string recovered = folder_.File("Project Files/Recovered.prj");
    ASSERT_TRUE(FileExists(recovered));
    EXPECT_EQ(ReadFile(recovered).rfind("kept.example\r\n", 0), 0U);
    DeleteFile(recovered);
  }
}

/// A copy of the program, with a window program beside it that only tells how it was started.
class OpenTest : public testing::Test {
 protected:
  OpenTest() {
    fs::create_directory(folder_.File("bin"));
    fs::copy_file(REQUITE_CONSOLE, console_);
    WriteFile(window_, "#!/bin/sh\necho \"started with $# arguments\" >&2\n");
    fs::permissions(window_, fs::perms::owner_all);
    WriteFile(folder_.File("a.prj"), "main.example\r\n");
    ::setenv("XDG_CONFIG_HOME", folder_.Folder.Path.c_str(), 1);
    ::setenv("PATH", folder_.File("elsewhere").c_str(), 1);
  }
  ~OpenTest() override {
    ::setenv("PATH", path_.c_str(), 1);
    ::unsetenv("XDG_CONFIG_HOME");
  }

  std::string LastProject() {
    ChildProcess script(REQUITE_CONSOLE,
                        {"script", "--program-folder", folder_.Folder.Path, "--settings", settings_},
                        "get LastProject\n");
    EXPECT_EQ(script.Wait(), 0) << script.Err;
    return script.Out;
  }

  test::TemporaryFolder folder_;
  std::string console_ = folder_.File("bin/requite-console");
  std::string window_ = folder_.File("bin/requite");
  std::string settings_ = folder_.File("requite/settings");
  std::string path_ = std::getenv("PATH");
};

TEST_F(OpenTest, AProjectBecomesTheLastOneAndTheWindowProgramStarts) {
  ChildProcess with(console_, {"open", folder_.File("bin/../a.prj")});
  EXPECT_EQ(with.Wait(), 0);
  EXPECT_EQ(with.Err, "started with 0 arguments\n");
  EXPECT_EQ(LastProject(), folder_.File("a.prj") + "\n");

  fs::create_directory(folder_.File("elsewhere"));
  fs::rename(window_, folder_.File("elsewhere/requite"));
  ChildProcess without(console_, {"open"});
  EXPECT_EQ(without.Wait(), 0);
  EXPECT_EQ(without.Err, "started with 0 arguments\n") << "found by PATH";
  EXPECT_EQ(LastProject(), folder_.File("a.prj") + "\n");
}

TEST_F(OpenTest, WithoutAWindowProgramNothingIsWritten) {
  const auto refused = [&](int status, const std::string& word) {
    ChildProcess open(console_, {"open", folder_.File("a.prj")});
    EXPECT_EQ(open.Wait(), status);
    EXPECT_NE(open.Err.find(word), std::string::npos) << open.Err;
    EXPECT_EQ(std::count(open.Err.begin(), open.Err.end(), '\n'), 1) << open.Err;
    EXPECT_FALSE(FileExists(settings_));
  };
  fs::permissions(window_, fs::perms::owner_read);
  refused(1, "requite");
  fs::remove(folder_.File("a.prj"));
  refused(2, "a.prj");
}

}  // namespace
}  // namespace requite
