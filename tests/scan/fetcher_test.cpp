// SPDX-License-Identifier: MIT
// The address of a page, its request, and what the events of its connection make of a response.
#include "scan/fetcher.h"

#include <gtest/gtest.h>

#include <chrono>

#include "scan/response_header.h"
#include "support/generated_page.h"
#include "support/scan_rig.h"

namespace requite::test {
namespace {

struct FetchRig : RecordedSteps, ScanRig {
  FetchRig() : Fetch(Context, *this) {
    Services.Connection.Events = &Fetch;
    State.Scanning = true;
  }
  void CheckHttpStatus(const std::string& header, const std::string& url) override {
    Header = header;
    Url = url;
  }
  void ProcessPage(PageBody body) override { Bodies.emplace_back(body.View()); }

  void Ask(const std::string& url) {
    State.PageUrl = url;
    Fetch.FetchPage();
  }
  [[nodiscard]] PageFetch& Page() { return State.Page; }

  Fetcher Fetch;
  std::string Header;
  std::string Url;
  std::vector<std::string> Bodies;
};

struct Address {
  const char* Url;
  const char* Host;
  const char* Path;
  const char* Dir;
};

TEST(FetchPage, CutsTheAddressFromTheUrl) {
  constexpr Address kRows[] = {
      {"a.example", "a.example", "/", "a.example/"},
      {"a.example/", "a.example", "/", "a.example/"},
      {"HTTPS://a.example/Dir/", "a.example", "/Dir/", "a.example/Dir/"},
      {"a.example/dir", "a.example", "/dir", "a.example/dir/"},
      {"a.example/d/x.html", "a.example", "/d/x.html", "a.example/d/"},
      {"a.example/x.d/", "a.example", "/x.d/", "a.example/"},
      {"a.example/a.example/x", "a.example", "/x", "a.example/a.example/x/"},
      {"a.example/?u=a.example/&v=1", "a.example", "/?u=&v=1", "a.example/?u=a.example/&v=1/"},
      {"a.example//", "a.example", "/", "a.example/"},
      {"site:8080", "site:8080", "/", "site:8080/"},
      {"", "", "/", "/"},
      {"/x", "", "/x", "/x/"},
  };
  for (const Address& row : kRows) {
    FetchRig rig;
    rig.Ask(row.Url);
    SCOPED_TRACE(row.Url);
    EXPECT_EQ(rig.Page().PageHost, row.Host);
    EXPECT_EQ(rig.Page().PagePath, row.Path);
    EXPECT_EQ(rig.State.PageDir, row.Dir);
    EXPECT_EQ(rig.State.PageFull, rig.State.PageUrl);
    EXPECT_EQ(rig.Services.Connection.Host, row.Host);
    EXPECT_EQ(rig.Services.Connection.Port, 80);
  }
}

TEST(FetchPage, StartsOverForEachPage) {
  FetchRig rig;
  rig.Page().RecvBuffer = "bytes of the last page";
  rig.Page().BytesReceived = rig.Page().ContentLength = rig.Page().TimeoutTicks = 9;
  rig.Page().HeaderSeen = true;
  rig.Services.EventLoop.OnEveryYield = [&] {
    EXPECT_EQ(rig.Controls.StatusBar1.Panel(1), "Downloading: a.example/p");
    EXPECT_EQ(rig.Services.Connection.Connects, 0);
    EXPECT_FALSE(rig.Services.timTimeout.Running);
  };
  rig.Ask("a.example/p");
  const PageFetch& page = rig.Page();
  EXPECT_EQ(page.RecvBuffer, "");
  EXPECT_EQ(page.BytesReceived + page.ContentLength + page.TimeoutTicks, 0);
  EXPECT_FALSE(page.HeaderSeen);
  EXPECT_TRUE(rig.Services.timTimeout.Running);
  EXPECT_EQ(rig.Services.timTimeout.Interval, 1000);
  EXPECT_EQ(rig.Services.Connection.Closes, 1);
  rig.State.Scanning = false;
  rig.Ask("b.example");
  EXPECT_EQ(rig.State.PageUrl, "b.example");
  EXPECT_EQ(rig.Services.Connection.Connects, 1);
}

TEST(FetchPage, AnArgumentThatThePlatformRefusesLengthensTheUrl) {
  FetchRig rig;
  rig.Services.Connection.WhenConnecting = [] { throw RuntimeFailure(Failure::InvalidArgument); };
  rig.Ask("a.example");
  EXPECT_EQ(rig.State.PageUrl, "a.example/");
  rig.Services.Connection.WhenConnecting = [] { throw RuntimeFailure(Failure::OutOfMemory); };
  rig.Ask("b.example");
  EXPECT_EQ(rig.State.PageUrl, "b.example");
  EXPECT_TRUE(rig.Services.timTimeout.Running) << "the time-out ends such a site";
}

TEST(OnConnect, SendsExactlyFourLinesOrTheVisitorsNameInAFifthThatNothingStoredCanLeave) {
  using namespace std::string_literals;
  const std::pair<std::string, std::string> rows[] = {
      {"", ""},
      {"Visitor/1.0 (+http://a.example)", "User-Agent: Visitor/1.0 (+http://a.example)\r\n"},
      {"  A\xE9\x80 B ", "User-Agent: A\xE9\x80 B\r\n"},
      {"a\r\n\r\nGET / HTTP/1.1\r\nX: \0\t\x7F\x1F"s, "User-Agent: aGET / HTTP/1.1X:\r\n"},
      {" \r\n\t ", ""}};
  for (const auto& [stored, line] : rows) {
    FetchRig rig;
    rig.Services.Store.Set("txtUserAgent", stored);
    rig.Ask("a.example/p?q=1");
    rig.Controls.pb1.SetValue(50);
    rig.Services.Connection.Establish();
    EXPECT_EQ(
        rig.Services.Connection.Sent,
        "GET /p?q=1 HTTP/1.1\r\nHost: a.example\r\nConnection: close\r\nAccept: */*\r\n" + line + "\r\n");
    EXPECT_EQ(rig.Host.Calls, std::vector<std::string>{"UpdateStats 0"});
    EXPECT_EQ(rig.Controls.pb1.Value(), 0);
  }
}

TEST(OnConnect, LeavesTheRequestToThePageThatASkipHasBegun) {
  FetchRig rig;
  rig.Ask("a.example");
  rig.Services.EventLoop.OnEveryYield = [&] {
    rig.Services.EventLoop.OnEveryYield = nullptr;
    rig.Ask("b.example");
  };
  rig.Services.Connection.Establish();
  EXPECT_EQ(rig.Services.Connection.Sent, "");
  rig.Services.Connection.Establish();
  EXPECT_NE(rig.Services.Connection.Sent.find("Host: b.example"), std::string::npos);
}

struct Response {
  const char* What;
  std::string Bytes;
  std::string Header;
  std::string Body;
};

void ExpectInChunksOf(std::size_t chunk, const Response& response) {
  SCOPED_TRACE(response.What + std::string(" in chunks of ") + std::to_string(chunk));
  FetchRig rig;
  rig.Ask("a.example/p");
  rig.Services.Connection.Serve(response.Bytes, chunk);
  ASSERT_EQ(rig.Bodies, std::vector<std::string>{response.Body});
  ASSERT_EQ(rig.Header, response.Header);
  ASSERT_EQ(rig.Url, "a.example/p");
  ASSERT_FALSE(rig.Services.timTimeout.Running);
  ASSERT_EQ(rig.Controls.StatusBar1.Panel(1), "Finished: a.example/p");
  const bool hasHeader = EndsWith(response.Header, "\r\n\r\n", Compare::Binary);
  ASSERT_EQ(rig.Page().HeaderSeen, hasHeader);
  if (hasHeader) {
    ASSERT_EQ(rig.Page().BytesReceived, static_cast<int>(response.Bytes.size() - response.Header.size()));
  }
}

const std::string kHead = "HTTP/1.1 200 OK\r\nContent-Length: 11\r\n\r\n";

TEST(OnClose, GivesTheSameHeaderAndBodyInEveryChunking) {
  using namespace std::string_literals;
  for (const Response& response :
       {Response{"a page", kHead + "hello world", kHead, "hello world"},
        {"nothing", "", "", ""},
        {"a header alone", kHead, kHead, ""},
        {"no header: the first three bytes count as one", "<html>\r\nx<HTy", "<ht", "ml>\r\nxy"},
        {"two bytes", "ab", "ab", ""},
        {"the header again in the body", kHead + "a" + Lower(kHead) + "b" + kHead, kHead, "ab"},
        {"bytes of 0", kHead + "\0a\0\r\n\r\n\0"s, kHead, "\0a\0\r\n\r\n\0"s},
        {"an empty header", "\r\n\r\nbody\r\n\r\n", "\r\n\r\n", "body"},
        {"a line end after the header", "A\r\n\r\n\r\nb", "A\r\n\r\n", "\r\nb"}}) {
    for (std::size_t chunk = 1; chunk <= response.Bytes.size() + 1; ++chunk)
      ExpectInChunksOf(chunk, response);
  }
}

TEST(RemoveHeader, AgreesWithTheReplacementOfEveryOccurrence) {
  PageGenerator generate(11);
  for (int i = 0; i < 20000; ++i) {
    constexpr std::array<std::string_view, 6> kPieces = {"\r\n", "\r\n\r\n", "\n", "a", "A", "ab"};
    std::string header;
    for (int piece = generate.Below(5); piece > 0; --piece) header += generate.Pick(kPieces);
    header = header.substr(0, header.find("\r\n\r\n"));
    header = generate.Below(4) == 0 ? header.substr(0, 3) : header + "\r\n\r\n";
    std::string body;
    for (int piece = generate.Below(12); piece > 0; --piece) {
      body += generate.Below(3) == 0 ? header : generate.Pick(kPieces);
    }
    std::string response = header + body;
    const std::size_t bodyAt = RemoveHeader(
        response, header, {[] { return true; }, static_cast<std::size_t>(1 + generate.Below(20))});
    ASSERT_EQ(response.substr(bodyAt), Replace(body, header, "", Compare::Text)) << header << "|" << body;
  }
}

TEST(OnDataArrival, ReadsTheLengthOfTheFirstFittingLineOnly) {
  for (const auto& [line, length] :
       std::map<std::string, int>{{"Content-Length: 42", 42},
                                  {"content-length: 42", 0},
                                  {"Content-Length:42", 0},
                                  {"Content-Length: many", 0},
                                  {"Content-Length: 99999999999", 0},
                                  {"X-Content-Length: 7\r\nContent-Length: 42", 7},
                                  {"A: b\r\nNo Content-Length", 0},
                                  {"Content-Length:  5 ", 5}}) {
    FetchRig rig;
    rig.Ask("a.example");
    rig.Services.Connection.Arrive("HTTP/1.1 200 OK\r\n" + line + "\r\n\r\nbody");
    EXPECT_EQ(rig.Page().ContentLength, length) << line;
    EXPECT_EQ(rig.Page().BytesReceived, 4) << line;
  }
}

TEST(OnDataArrival, ShowsProgressAndEndsTheSilence) {
  FetchRig rig;
  rig.Ask("a.example/p");
  rig.Page().TimeoutTicks = 8;
  rig.Services.Connection.Arrive("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nabc");
  EXPECT_EQ(rig.Page().TimeoutTicks, 0);
  EXPECT_EQ(rig.Controls.StatusBar1.Panel(1), "Downloading: a.example/p (42)") << "headers counted still";
  rig.Services.Connection.Arrive("de");
  EXPECT_EQ(rig.Controls.StatusBar1.Panel(1), "Downloading: a.example/p (5)");
  EXPECT_EQ(rig.Controls.pb1.Value(), 50);
  rig.Services.Connection.Arrive("more than was said");
  EXPECT_EQ(rig.Controls.pb1.Value(), 50) << "no place on the bar for more than all";
  EXPECT_EQ(rig.Page().BytesReceived, 23);
}

TEST(OnDataArrival, APageEndsAt64MiBWithOrWithoutAHeaderEnd) {
  for (const std::string& head : {kHead, std::string("abc")}) {
    FetchRig rig;
    rig.Ask("a.example");
    const std::string piece(1 << 16, 'x');
    rig.Services.Connection.Arrive(head);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 1024; ++i) {
      rig.Services.Connection.Arrive(piece);
      ASSERT_LE(rig.Page().RecvBuffer.size(), Fetcher::kMostBytes);
    }
    EXPECT_FALSE(rig.Services.Connection.Open);
    ASSERT_EQ(rig.Bodies.size(), 1U);
    EXPECT_EQ(rig.Bodies[0].size(), Fetcher::kMostBytes - head.size());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30)) << "not quadratic";
  }
}

TEST(OnDataArrival, HeadersWithoutAnEndAreLookedThroughOnce) {
  FetchRig rig;
  rig.Ask("a.example");
  // Searching 8 MiB again for each of 128 Ki pieces would read half a terabyte.
  for (int i = 0; i < (1 << 17); ++i) {
    rig.Services.Connection.Arrive("X-Header: endless, and without any end, all the way down......\r\n");
  }
  EXPECT_FALSE(rig.Page().HeaderSeen);
  rig.Services.Connection.Arrive("\r\nbody");
  EXPECT_TRUE(rig.Page().HeaderSeen);
  EXPECT_EQ(rig.Page().BytesReceived, 4);
}

}  // namespace
}  // namespace requite::test
