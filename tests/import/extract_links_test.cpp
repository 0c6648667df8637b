// SPDX-License-Identifier: MIT
// What becomes a link of the user's page, and what is left out.
#include "import/extract_links.h"

#include <gtest/gtest.h>

#include "import/import_resolve.h"
#include "support/fakes.h"
#include "support/hostile_text.h"
#include "support/plain_import.h"

namespace requite::test {
namespace {

struct Extraction {
  std::string Run(std::string_view html, std::string_view base) {
    return ExtractLinks(html, base, {State, Status, Events, Ended});
  }

  ScanState State;
  StatusBar Status{"StatusBar1"};
  FakeEventLoop Events;
  std::function<bool()> Ended = [] { return false; };
};

struct Case {
  const char* Name;
  const char* Html;
  const char* Links;
};

TEST(ExtractLinks, LinksToOtherSites) {
  const Case cases[] = {
      {"scheme goes, a slash comes", "<a HREF=\"http://other.example\">x</a>", "other.example/,"},
      {"single quotes", "<a href='http://other.example/a'>x</a>", "other.example/a,"},
      {"a blank does not end a value", "<a href=http://other.example/a target=_top>x</a>",
       "other.example/a target=_top,"},
      {"no end on the line", "<a href=http://other.example/path\r>", "other.example/pa,"},
      {"an end that is the last character", "<a href=http://other.example/path>\r", "other.example/pat,"},
      {"two on a line", "<a href=\"http://a.example/1\"><a href=\"http://b.example/2\">",
       "a.example/1,b.example/2,"},
      {"own site in any letter case", "<a href=\"http://HOME.example/x\">", ""},
      {"relative name", "<a href=\"page.html\">", ""},
      {"unknown host without a scheme", "<a href=\"other.example/x\">", ""},
      {"known host without a scheme", "<a href=\"other.com/x\">", "other.com/x,"},
      {"one level up loses the host", "<a href=\"../x.html\">", "/x.html,"},
      {"from the dot: the host of the scan", "<a href=\"./www.html\">", "scan.example/www.html,"},
      {"a comma stays", "<a href=\"http://other.example/a,b\">", "other.example/a,b,"},
      {"left out", "<a href=\"http://o.example/a.jsp\"><a href=\"http://o.example/#x\"><a href=\"MailTo:a\">",
       ""},
      {"mended ending", "<a href=\"http://other.example/a.ht\">", "other.example/a.htm,"},
      {"nothing but the word, and its mended ending", "<a href=", "home.example,"},
      {"one letter of a value", "<a href=x", "home.example,"},
  };
  for (const Case& each : cases) {
    Extraction run;
    run.State.Pages[0].PageHost = "scan.example";
    EXPECT_EQ(run.Run(each.Html, "home.example/"), each.Links) << each.Name;
  }
}

TEST(ExtractLinks, AgreesWithItsPlainWordingOnRandomPages) {
  std::mt19937 random(815);
  const std::vector<std::string> pieces = {
      "href=",  "HREF=", "\"",      "'",        ">",         "\r",      "\n",   " ",        "..",
      "./",     "/",     "http://", "https://", "www.",      ".com",    "home", ".example", "a",
      "mailto", ".js",   "#",       ".ht",      "\r\nhref=", "href=\"", "/hre", ","};
  for (int round = 0; round < 10000; ++round) {
    const std::string html = RandomText(random, pieces, 16);
    const std::string base = round % 7 == 0 ? "" : round % 2 == 0 ? "home.example/" : "home";
    Extraction run;
    run.State.Pages[0].PageHost = "scan.example";
    ASSERT_EQ(run.Run(html, base), PlainExtractLinks(html, base, "scan.example")) << html;
  }
}

TEST(ExtractLinks, CountsAndLetsEventsRunAndEndsWithItsWindow) {
  Extraction run;
  bool closed = false;
  run.Ended = [&] { return closed; };
  run.Events.AtYield(4, [&] { EXPECT_EQ(run.Status.Panel(1), "Extracted 1 link(s)"); });
  const std::string page = "x\r<a href=\"http://a.example\">\r<a href=\"http://b.example\">";
  EXPECT_EQ(run.Run(page, "home"), "a.example/,b.example/,");
  EXPECT_EQ(run.Status.Panel(1), "Extracted 2 link(s)");
  run.Events.AtYield(run.Events.Yields + 2, [&] { closed = true; });
  EXPECT_EQ(run.Run(page, "home"), "");
}

}  // namespace
}  // namespace requite::test
