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
    EXPECT_EQ(HttpGetText(url, {}, gets, events), body + std::string(size < 256 ? 256 - size : 0, '\0'))
        << size;
    EXPECT_EQ(events.Yields > 0, size > 256) << "events run between the blocks of " << size << " bytes";
    EXPECT_EQ(internet.Agent, "Mozilla");
  }
}

/// `Told` is the caller's text afterwards and what is opened; `Secure` is what is opened for a secure
/// visitor.
struct Request {
  const char *Name, *Asked, *Told, *Secure;
};

TEST(HttpGetText, PutsTheSchemeInFrontInTheCallersTextAndTakesItFromASecureRequest) {
  constexpr Request kRows[] = {
      {"a bare host", "a.example", "http://a.example", "http://a.example"},
      {"a plain URL", "HTTP://a.example", "HTTP://a.example", "HTTP://a.example"},
      {"a secure URL", "https://a.example", "http://https://a.example", "https://a.example"},
      {"in capitals", "HTTPS://a.example", "http://HTTPS://a.example", "HTTPS://a.example"},
      {"both schemes", "http://https://a.example", "http://https://a.example", "https://a.example"},
      {"a plain URL in a query", "a.example/?u=http://b", "a.example/?u=http://b", "a.example/?u=http://b"},
      {"a secure one", "a.example/?u=https://b", "http://a.example/?u=https://b",
       "http://a.example/?u=https://b"},
      {"nothing", "", "http://", "http://"}};
  for (const Request& row : kRows) {
    for (const bool secure : {false, true}) {
      SCOPED_TRACE(row.Name + std::string(secure ? ", secure" : ""));
      FakeInternet internet;
      Gets gets(internet);
      FakeEventLoop events;
      std::string url = row.Asked;
      EXPECT_EQ(HttpGetText(url, {"", secure}, gets, events), "")
          << "a URL that cannot be opened has no text";
      EXPECT_EQ(url, row.Told);
      EXPECT_EQ(internet.Asked, std::vector<std::string>{secure ? row.Secure : row.Told});
    }
  }
}

}  // namespace
}  // namespace requite::test
