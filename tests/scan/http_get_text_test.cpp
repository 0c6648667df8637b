// SPDX-License-Identifier: MIT
// The block rule and the address rule of the blocking GET.
#include "scan/http_get_text.h"

#include <gtest/gtest.h>

#include "support/fakes.h"

namespace requite::test {
namespace {

struct BlockCase {
  std::size_t BodySize;
  std::size_t TextSize;
  int Yields;
};

TEST(HttpGetText, TakesTheFirstBlockWhole) {
  for (const BlockCase& each : {BlockCase{0, 256, 0}, BlockCase{1, 256, 0}, BlockCase{256, 256, 0},
                                BlockCase{257, 257, 1}, BlockCase{600, 600, 2}}) {
    FakeInternet internet;
    Gets gets(internet);
    FakeEventLoop events;
    const std::string body(each.BodySize, 'b');
    internet.Bodies["http://a.example/"] = body;
    std::string url = "http://a.example/";
    const std::string text = HttpGetText(url, gets, events);
    EXPECT_EQ(text, body + std::string(each.TextSize - body.size(), '\0'));
    EXPECT_EQ(events.Yields, each.Yields);
    EXPECT_EQ(internet.Agent, "Mozilla");
  }
}

TEST(HttpGetText, PutsTheSchemeInFrontInTheCallersText) {
  for (const auto& [asked, opened] :
       std::map<std::string, std::string>{{"a.example", "http://a.example"},
                                          {"HTTP://a.example", "HTTP://a.example"},
                                          {"https://a.example", "http://https://a.example"},
                                          {"a.example/?u=http://b", "a.example/?u=http://b"},
                                          {"", "http://"}}) {
    FakeInternet internet;
    Gets gets(internet);
    FakeEventLoop events;
    std::string url = asked;
    EXPECT_EQ(HttpGetText(url, gets, events), "") << "a URL that cannot be opened has no text";
    EXPECT_EQ(url, opened);
    EXPECT_EQ(internet.Asked, std::vector<std::string>{opened});
  }
}

}  // namespace
}  // namespace requite::test
