// SPDX-License-Identifier: MIT
// The harvesters through the real requite-console, with an engine's result page on the loopback.
#include <gtest/gtest.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

#include "console/child_process.h"
#include "server.h"
#include "support/fakes.h"

namespace requite {
namespace {

namespace fs = std::filesystem;

class HarvestProgramTest : public testing::Test {
 protected:
  HarvestProgramTest() {
    fs::copy_file(REQUITE_EMPTY_DATABASE, folder_.File("spider.mdb"));
    WriteFile(folder_.File("filetypes.txt"), ".htm\r\n");
    fs::create_directories(folder_.File("sites/google.com"));
    std::string page;
    for (int i = 0; i < 7; ++i) page += "<a href=\"http://www.name" + std::to_string(i) + "x.com/\">";
    WriteFile(folder_.File("sites/google.com/search"), page);
  }
  ~HarvestProgramTest() override {
    const std::uint64_t one = 1;
    EXPECT_EQ(::write(stop_.Number(), &one, sizeof one), static_cast<ssize_t>(sizeof one));
    thread_.join();
  }

  [[nodiscard]] std::vector<std::string> Arguments() const {
    return {"script",
            "--program-folder",
            folder_.Folder.Path,
            "--settings",
            folder_.File("settings"),
            "--connect-to",
            "::127.0.0.1:" + std::to_string(server_.Port())};
  }

  test::TemporaryFolder folder_;
  samples::Server server_{samples::Sites(folder_.File("sites")), 0};
  samples::Descriptor stop_{::eventfd(0, EFD_CLOEXEC)};
  std::thread thread_{[this] { server_.Run(stop_.Number()); }};
};

TEST_F(HarvestProgramTest, Form3CollectsDomainsAndShowsItsState) {
  test::ChildProcess script(
      REQUITE_CONSOLE, Arguments(),
      "set txtDomain main.example\nclick cmdAdd2\nset Text1 a.example\nclick cmdAdd\n"
      "set Text1 b.example\nclick cmdAdd\nset txtSearch a b\nload Form3\n"
      "print Form3.Text1\nrun 4000\nprint Form3.Text1\nvar UniqueResults\nvar ResultOffset\n"
      "var Finished\nvar SearchTerm\nvar Engine\nprint StatusBar1(3)\n");
  EXPECT_EQ(script.Wait(), 0) << script.Err;
  EXPECT_EQ(script.Out,
            "Status...\nFinished! Extracted 7 results.\n7\n101\nTrue\na+b\nGoogle\nTrying next search\n");
}

TEST_F(HarvestProgramTest, CallsReachTheDatabaseAndThePageFile) {
  WriteFile(folder_.File("html20.txt"), std::string(60, ' ') + "mailto:joe@site.example> \r\n");
  test::ChildProcess script(
      REQUITE_CONSOLE, Arguments(),
      "call ExtractEmails 0\nvar Scanning\ncall EmailExists JOE@site.example.\n"
      "call DeleteAllEmails\ncall EmailExists joe@site.example\nclick Command2\nwindows\n"
      "print frmExport.Combo1\nclose frmExport\n");
  EXPECT_EQ(script.Wait(), 0) << script.Err;
  EXPECT_EQ(script.Out,
            "\t0\nFalse\nTrue\tJOE@site.example\nTrue\t\nFalse\tjoe@site.example\nForm1\nfrmExport\n"
            "Semi-Colon delimited (;)\n");
}

TEST_F(HarvestProgramTest, WithoutTheDatabaseAHarvestEndsTheProgram) {
  DeleteFile(folder_.File("spider.mdb"));
  test::ChildProcess script(REQUITE_CONSOLE, Arguments(), "load Form3\n");
  EXPECT_EQ(script.Wait(), 70);
  EXPECT_NE(script.Err.find("run-time failure 3024"), std::string::npos) << script.Err;
}

}  // namespace
}  // namespace requite
