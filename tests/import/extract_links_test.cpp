// SPDX-License-Identifier: MIT
// What becomes a link of the user's page and what is left out; the tags that go from a script's output.
#include "import/extract_links.h"

#include <gtest/gtest.h>

#include "import/strip_tags.h"
#include "support/fakes.h"
#include "support/plain_import.h"

namespace requite::test {
namespace {

struct Extraction {
  std::string Run(std::string_view html, std::string_view base) {
    return ExtractLinks(html, base, {State, Settings(Store), Status, Events, Ended});
  }

  ScanState State;
  MemorySettings Store;
  StatusBar Status{"StatusBar1"};
  FakeEventLoop Events;
  std::function<bool()> Ended = [] { return false; };
};

TEST(ExtractLinks, AgreesWithItsPlainWordingOnRandomPages) {
  std::mt19937 random(815);
  const std::vector<std::string> pieces = {
      "href=", "HREF=",  "\"",      "'",        ">",    "\r",        "\n",      " ",    "..",
      "./",    "/",      "http://", "https://", "www.", ".com",      "home",    "HOME", ".example",
      "a",     "mailto", ".js",     "#",        ".ht",  "\r\nhref=", "href=\"", "/hre", ","};
  for (int round = 0; round < 10000; ++round) {
    const std::string html = RandomText(random, pieces, 16);
    const std::string base = round % 7 == 0 ? "" : round % 2 == 0 ? "home.example/" : "home";
    Extraction run;
    run.State.Page.PageHost = "scan.example";
    const bool secure = round % 3 == 0;
    run.Store.Set("chkSecure", secure ? "1" : "0");
    ASSERT_EQ(run.Run(html, base), PlainExtractLinks(html, base, "scan.example", secure)) << html;
  }
}

TEST(StripTags, AgreesWithThePlainLoopOnRandomTexts) {
  std::mt19937 random(4711);
  const std::vector<std::vector<std::string>> alphabets = {
      {"<", ">", "a"},
      {"<b>", "<", "b>", "x", "<c>", "c>"},
      {"<b>", "<", ">", "<a<b>", "c>", "<<b>b>", "a", "<ac>", "<a<c>", "y"}};
  for (int round = 0; round < 20000; ++round) {
    const std::string text = RandomText(random, alphabets[round % alphabets.size()], 24);
    ASSERT_EQ(StripTags(text), PlainStripTags(text)) << text;
  }
}

TEST(StripTags, IsFastOnMillionsOfTags) {
  std::string different;
  std::string joining = "<b>";
  for (int i = 0; different.size() < 3'000'000; ++i) different += "<" + std::to_string(i) + ">x";
  while (joining.size() < 3'000'000) joining += "<<b>";
  EXPECT_EQ(StripTags(different).find('<'), std::string::npos);
  EXPECT_EQ(StripTags(joining).find('>'), std::string::npos);
}

}  // namespace
}  // namespace requite::test
