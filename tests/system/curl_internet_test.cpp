// SPDX-License-Identifier: MIT
// GETs against a server on loopback: what is sent, redirects, limits, silence, and whose each GET is.
#include "system/curl_internet.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <netdb.h>

#include <atomic>
#include <mutex>

#include "qt/loop_rig.h"
#include "qt/services/code_page.h"
#include "qt/services/qt_descriptor_loop.h"
#include "system/local_server.h"

namespace requite::test {
namespace {

std::string Response(const std::string& status, const std::string& headers, const std::string& body) {
  return "HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " + std::to_string(body.size()) +
         "\r\nConnection: close\r\n\r\n" + body;
}

std::string RedirectTo(const std::string& location) {
  return Response("302 Found", "Location: " + location + "\r\n", "moved");
}

class CurlInternetTest : public testing::Test {
 protected:
  LoopRig rig_;
  EventGuard guard_{[](const RuntimeFailure& failure) { ADD_FAILURE() << failure.Description; }};
  QtDescriptorLoop loop_{guard_, rig_.Loop.Late()};
  ConnectMap map_;
  std::mutex requestsLock_;
  std::vector<std::string> requests_;
  std::string blocks_ = std::string(1'000'000, 'b');
  LocalServer server_{[this](ServedConnection& client) { Serve(client); }};

  void Serve(ServedConnection& client) {
    const std::string request = client.ReadRequest();
    {
      const std::lock_guard lock(requestsLock_);
      requests_.push_back(request);
    }
    if (request.empty()) return;  // the other end was gone before it asked
    const std::string path = request.substr(4, request.find(" HTTP") - 4);
    if (path == "/") client.Send(Response("200 OK", "", "home"));
    if (path == "/missing") client.Send(Response("404 Not Found", "", "no such page"));
    if (path == "/empty") client.Send(Response("200 OK", "", ""));
    if (path == "/absolute") client.Send(RedirectTo("http://other.example/"));
    if (path == "/dir/relative") client.Send(RedirectTo("../missing"));
    if (path == "/odd") client.Send(RedirectTo("/qodd?a=100%&b=%7E~ c"));
    if (path == "/circle") client.Send(RedirectTo("/circle"));
    if (path == "/to-file") client.Send(RedirectTo("file:///etc/hostname"));
    if (path == "/to-nowhere") client.Send(RedirectTo("http://"));
    if (path == "/to-reset") client.Send(RedirectTo("/reset"));
    if (path == "/no-location") client.Send(Response("302 Found", "", "stay"));
    if (path == "/packed") client.Send(Response("200 OK", "Content-Encoding: gzip\r\n", "not unpacked"));
    if (path == "/cut-off") client.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
    if (path == "/cut-head") client.Send("HTTP/1.1 200 OK\r\nContent-Len");
    if (path == "/interim") client.Send("HTTP/1.1 103 Early Hints\r\n\r\n");
    if (path == "/no-head") client.Send("no head at all");
    if (path == "/reset") client.Reset();
    if (path == "/silent") client.WaitForPeer();
    if (path == "/half-silent") {
      client.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
      client.WaitForPeer();
    }
    if (path == "/endless") SendEndless(client);
    if (path.starts_with("/q")) client.Send(Response("200 OK", "", path));
  }

  void SendEndless(ServedConnection& client) const {
    client.Send("HTTP/1.1 200 OK\r\n\r\n");
    for (int i = 0; i < 64; ++i) client.Send(blocks_);
  }

  std::vector<std::string> TakeRequests() {
    const std::lock_guard lock(requestsLock_);
    return std::exchange(requests_, {});
  }
  std::string Url(const std::string& path) {
    return "http://127.0.0.1:" + std::to_string(server_.Port()) + path;
  }
  std::string Get(CurlInternet& internet, const std::string& url) {
    return Gets(internet).OpenUrl(url, "Mozilla").value_or("(nothing)");
  }
};

TEST_F(CurlInternetTest, BodiesComeWhateverTheStatus) {
  CurlInternet internet(loop_, map_, AsciiHost);
  EXPECT_EQ(Get(internet, Url("")), "home");
  const std::string request = TakeRequests().at(0);
  for (const char* line : {"User-Agent: Mozilla\r\n", "Pragma: no-cache\r\n", "Connection: close\r\n"}) {
    EXPECT_NE(request.find(line), std::string::npos) << request;
  }
  EXPECT_EQ(request.find("Encoding"), std::string::npos) << request;
  EXPECT_EQ(Get(internet, Url("/missing")), "no such page");
  EXPECT_EQ(Get(internet, Url("/empty")), "");
  EXPECT_EQ(Get(internet, Url("/no-location")), "stay");
  EXPECT_EQ(Get(internet, Url("/packed")), "not unpacked");
  EXPECT_EQ(Get(internet, Url("/cut-off")), "half");
}

TEST_F(CurlInternetTest, OneRequestIsMadeWhateverTheServerDoes) {
  CurlInternet internet(loop_, map_, AsciiHost);
  EXPECT_EQ(Get(internet, Url("/")), "home") << "a connection that could be used again";
  for (const char* path : {"/close", "/reset", "/cut-head", "/no-head", "/interim"}) {
    TakeRequests();
    EXPECT_EQ(Get(internet, Url(path)), "(nothing)") << path;
    EXPECT_EQ(TakeRequests().size(), 1U) << path;
  }
}

TEST_F(CurlInternetTest, TheUrlIsSentAsTyped) {
  CurlInternet internet(loop_, map_, AsciiHost);
  for (const auto& [typed, sent] : std::vector<std::pair<std::string, std::string>>{
           {"/q/../b/./%41%7e%2d?rate=100%&f=%7E~", "/q/../b/./%41%7e%2d?rate=100%&f=%7E~"},
           {"/q//?a=\"<|>\\^`{}'&&b=[]#part", "/q//?a=\"<|>\\^`{}'&&b=[]"},
           {std::string("/q a\tb\r\nc\x7F") + '\0' + "?d e", "/q%20a%09b%0D%0Ac%7F%00?d%20e"},
           {"/q\xE9?a=\x80%E4", "/q\xE9?a=\x80%E4"}}) {
    EXPECT_EQ(Get(internet, Url(typed)), sent) << typed;
  }
  EXPECT_EQ(Get(internet, Url("/odd")), "/qodd?a=100%&b=%7E~%20c")
      << "an address to go to is no more changed";
}

TEST_F(CurlInternetTest, RedirectsAreFollowedToTheWebOnlyAndNotForEver) {
  map_.Add({"other.example", 80, {"127.0.0.1", server_.Port()}});
  CurlInternet internet(loop_, map_, AsciiHost, {.MostRedirects = 5});
  EXPECT_EQ(Get(internet, Url("/absolute")), "home");
  EXPECT_NE(TakeRequests().back().find("Host: other.example\r\n"), std::string::npos);
  EXPECT_EQ(Get(internet, Url("/dir/relative")), "no such page");
  for (const char* path : {"/to-file", "/to-nowhere", "/to-reset"}) {
    EXPECT_EQ(Get(internet, Url(path)), "(nothing)") << path;
  }
  TakeRequests();
  EXPECT_EQ(Get(internet, Url("/circle")), "(nothing)");
  EXPECT_EQ(TakeRequests().size(), 6U);
}

TEST_F(CurlInternetTest, AMappedHostKeepsItsHostLineAndItsRelativeRedirects) {
  const Endpoint here{"127.0.0.1", server_.Port()};
  map_.Add({"site.example", 8080, here});
  map_.Add({"::1", 8080, here});
  map_.Add({"xn--mller-kva.example", std::nullopt, here});
  map_.Add({"", std::nullopt, {"127.0.0.1", RefusingPort()}});
  CurlInternet internet(loop_, map_, AsciiHost);
  EXPECT_EQ(Get(internet, "http://SITE.example:8080/dir/relative"), "no such page");
  for (const std::string& request : TakeRequests()) {
    EXPECT_NE(request.find("Host: SITE.example:8080\r\n"), std::string::npos) << request;
  }
  EXPECT_EQ(Get(internet, "http://[::1]:8080/"), "home");
  EXPECT_EQ(Get(internet, "http://m\xFCller.example/"), "home");
  EXPECT_EQ(Get(internet, "http://site.example/"), "(nothing)");
}

TEST_F(CurlInternetTest, WhatIsNoWebAddressGivesNothing) {
  CurlInternet internet(loop_, map_, AsciiHost);
  for (const std::string& url :
       {std::string(), std::string("http://"), std::string("http:///127.0.0.1"), std::string("site.example"),
        "127.0.0.1/?u=" + Url("/"), std::string("file:///etc/hostname"),
        std::string("http://127.0.0.1:99999/"), std::string("http://127.0.0.1:0/"),
        std::string("ftp://127.0.0.1/"), std::string("http://[::1/"),
        "http://127.0.0.1:" + std::to_string(RefusingPort()) + "/",
        std::string("http://https://127.0.0.1/")}) {
    EXPECT_EQ(Get(internet, url), "(nothing)") << url;
  }
}

TEST_F(CurlInternetTest, ALongBodyIsCut) {
  CurlInternet internet(loop_, map_, AsciiHost, {.MostBytes = 5'000'000});
  EXPECT_EQ(Get(internet, Url("/endless")).size(), 5'000'000U);
  CurlInternet larger(loop_, map_, AsciiHost);
  EXPECT_EQ(Get(larger, Url("/endless")).size(), 64'000'000U);
}

TEST_F(CurlInternetTest, SilenceEndsTheWait) {
  CurlInternet internet(loop_, map_, AsciiHost, {.Silence = std::chrono::seconds(1)});
  EXPECT_EQ(Get(internet, Url("/silent")), "(nothing)");
  EXPECT_EQ(Get(internet, Url("/half-silent")), "half");
}

TEST_F(CurlInternetTest, EachOwnerEndsItsOwnGetsOnly) {
  LocalServer mute([](ServedConnection& client) { client.WaitForPeer(); });
  const std::string silent = "http://127.0.0.1:" + std::to_string(mute.Port()) + "/";
  CurlInternet internet(loop_, map_, AsciiHost);
  Gets scan(internet);
  auto window = std::make_unique<Gets>(internet);
  std::vector<std::string> answers;
  const auto note = [&](const std::optional<std::string>& body) { answers.push_back(body.value_or("none")); };
  window->Start(silent, "Mozilla", note);
  scan.Start(silent, "Mozilla", note);
  scan.Start(Url("/qfirst"), "Mozilla", [&](const std::optional<std::string>& body) {
    note(body);
    scan.Start(Url("/qsecond"), "Mozilla", [&](const std::optional<std::string>& second) {
      note(second);
      rig_.After(0, [&] { scan.Abort(); });
      rig_.After(20, [&] { window.reset(); });
    });
  });
  EXPECT_TRUE(answers.empty()) << "never before the next event";
  // The inner wait is another owner's, and continues when the outer one is ended.
  std::string inner;
  rig_.After(0, [&] {
    inner = window->OpenUrl(silent, "Mozilla").value_or("(nothing)");
    EXPECT_FALSE(window) << "ended by its own owner";
  });
  EXPECT_EQ(scan.OpenUrl(silent, "Mozilla"), std::nullopt);
  EXPECT_EQ(inner, "(nothing)");
  EXPECT_EQ(answers, (std::vector<std::string>{"/qfirst", "/qsecond"})) << "what was ended is not answered";
  EXPECT_EQ(Get(internet, Url("/")), "home");
}

TEST_F(CurlInternetTest, TheEndOfTheProgramEndsAWait) {
  CurlInternet internet(loop_, map_, AsciiHost);
  rig_.After(5, [this] { rig_.EndProgram(); });
  EXPECT_EQ(Get(internet, Url("/silent")), "(nothing)");
}

// The library's thread may outlive the test.
std::atomic<bool> hang = false;
std::atomic<int> hanging = 0;

TEST_F(CurlInternetTest, AHangingLookUpHoldsNothingUp) {
  hang = true;
  auto internet = std::make_unique<CurlInternet>(loop_, map_, AsciiHost);
  auto gets = std::make_unique<Gets>(*internet);
  rig_.After(20, [&] { gets->Abort(); });
  EXPECT_EQ(gets->OpenUrl("http://mute.requite.example/", "Mozilla"), std::nullopt);
  gets->Start("http://mute.requite.example/", "Mozilla", [](const auto&) { FAIL(); });
  EXPECT_EQ(Get(*internet, "http://two.requite.example:" + std::to_string(server_.Port()) + "/"), "home")
      << "the second address answers";
  gets.reset();
  internet.reset();
  EXPECT_EQ(hanging, 2);
  hang = false;
  hang.notify_all();
}

}  // namespace
}  // namespace requite::test

/// The system's resolver, with two names of the tests in it. The library calls it in place of the real one.
extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints, addrinfo** found) {
  using requite::test::hang;
  using Resolver = int (*)(const char*, const char*, const addrinfo*, addrinfo**);
  static const auto real = reinterpret_cast<Resolver>(::dlsym(RTLD_NEXT, "getaddrinfo"));
  const std::string_view asked = name == nullptr ? std::string_view() : name;
  if (asked == "mute.requite.example") {
    ++requite::test::hanging;
    hang.wait(true);
    return EAI_NONAME;
  }
  if (asked != "two.requite.example") return real(name, service, hints, found);
  const int status = real("127.0.0.2", service, hints, found);
  return status != 0 ? status : real("127.0.0.1", service, hints, &(*found)->ai_next);
}
