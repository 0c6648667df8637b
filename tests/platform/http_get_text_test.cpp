// SPDX-License-Identifier: MIT
// The block rule and the address rule of the blocking GET.
#include "platform/http_get_text.h"

#include <gtest/gtest.h>

#include "support/fakes.h"

namespace requite::test {
namespace {

TEST(HttpGetText, FillsTheFirstBlockUpWithBytesOfZero) {
  for (const std::size_t size : {0, 1, 256, 257, 600}) {
    FakeInternet internet;
    Gets gets(internet);
    FakeEventLoop events;
    const std::string body(size, 'b');
    internet.Bodies["http://a.example/"] = body;
    std::string url = "http://a.example/";
    EXPECT_EQ(HttpGetText(url, gets, events), body + std::string(size < 256 ? 256 - size : 0, '\0')) << size;
    EXPECT_EQ(events.Yields > 0, size > 256) << "events run between the blocks of " << size << " bytes";
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
    SCOPED_TRACE(asked);
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
