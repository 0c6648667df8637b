// SPDX-License-Identifier: MIT
// Blocking GETs against a server on loopback: redirects, limits, silence and abort.
#include "shell/qt/blocking_get.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <atomic>
#include <mutex>

#include "shell/qt/local_server.h"
#include "shell/qt/loop_rig.h"

namespace requite::test {
namespace {

std::string Response(const std::string& status, const std::string& headers, const std::string& body) {
  return "HTTP/1.1 " + status + "\r\n" + headers + "Content-Length: " + std::to_string(body.size()) +
         "\r\nConnection: close\r\n\r\n" + body;
}

std::string RedirectTo(const std::string& location) {
  return Response("302 Found", "Location: " + location + "\r\n", "moved");
}

class BlockingGetTest : public testing::Test {
 protected:
  LoopRig rig_;
  ConnectMap map_;
  std::mutex requestsLock_;
  std::vector<std::string> requests_;
  std::atomic<int> count_ = 0;
  std::string blocks_ = std::string(1'000'000, 'b');
  LocalServer server_{[this](ServedConnection& client) { Serve(client); }};

  void Serve(ServedConnection& client) {
    const std::string request = client.ReadRequest();
    {
      const std::lock_guard lock(requestsLock_);
      requests_.push_back(request);
    }
    ++count_;
    const std::string path = request.substr(4, request.find(" HTTP") - 4);
    if (path == "/") client.Send(Response("200 OK", "", "home"));
    if (path == "/missing") client.Send(Response("404 Not Found", "", "no such page"));
    if (path == "/empty") client.Send(Response("200 OK", "", ""));
    if (path == "/absolute") client.Send(RedirectTo("http://other.example/"));
    if (path == "/dir/relative") client.Send(RedirectTo("../missing"));
    if (path == "/circle") client.Send(RedirectTo("/circle"));
    if (path == "/to-file") client.Send(RedirectTo("file:///etc/hostname"));
    if (path == "/to-nowhere") client.Send(RedirectTo("http://"));
    if (path == "/no-location") client.Send(Response("302 Found", "", "stay"));
    if (path == "/packed") client.Send(Response("200 OK", "Content-Encoding: gzip\r\n", "not unpacked"));
    if (path == "/cut-off") client.Send("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf");
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

  std::string Url(const std::string& path) {
    return "http://127.0.0.1:" + std::to_string(server_.Port()) + path;
  }
  std::string Get(BlockingGet& internet, const std::string& url) {
    return internet.OpenUrl(url, "Mozilla").value_or("(nothing)");
  }
};

TEST_F(BlockingGetTest, BodiesComeWhateverTheStatus) {
  BlockingGet internet(map_);
  EXPECT_EQ(Get(internet, Url("")), "home");
  EXPECT_EQ(Get(internet, Url("/missing")), "no such page");
  EXPECT_EQ(Get(internet, Url("/empty")), "");
  EXPECT_EQ(Get(internet, Url("/no-location")), "stay");
  EXPECT_EQ(Get(internet, Url("/packed")), "not unpacked");
  EXPECT_EQ(Get(internet, Url("/cut-off")), "half");
  EXPECT_NE(requests_[0].find("User-Agent: Mozilla\r\n"), std::string::npos);
  EXPECT_NE(requests_[0].find("Pragma: no-cache\r\n"), std::string::npos);
  EXPECT_EQ(requests_[0].find("gzip"), std::string::npos);
}

TEST_F(BlockingGetTest, RedirectsAreFollowedToTheWebOnlyAndNotForEver) {
  map_.Add({"other.example", 80, {"127.0.0.1", server_.Port()}});
  BlockingGet internet(map_, {.MostRedirects = 5});
  EXPECT_EQ(Get(internet, Url("/absolute")), "home");
  EXPECT_NE(requests_.back().find("Host: other.example\r\n"), std::string::npos);
  EXPECT_EQ(Get(internet, Url("/dir/relative")), "no such page");
  EXPECT_EQ(Get(internet, Url("/to-file")), "(nothing)");
  EXPECT_EQ(Get(internet, Url("/to-nowhere")), "(nothing)");
  count_ = 0;
  EXPECT_EQ(Get(internet, Url("/circle")), "(nothing)");
  EXPECT_EQ(count_, 6);
}

TEST_F(BlockingGetTest, AMappedHostKeepsItsHostLineAndItsRelativeRedirects) {
  map_.Add({"site.example", 8080, {"127.0.0.1", server_.Port()}});
  map_.Add({"", std::nullopt, {"127.0.0.1", RefusingPort()}});
  BlockingGet internet(map_);
  EXPECT_EQ(Get(internet, "http://SITE.example:8080/dir/relative"), "no such page");
  for (const std::string& request : requests_) {
    EXPECT_NE(request.find("Host: site.example:8080\r\n"), std::string::npos) << request;
  }
  EXPECT_EQ(Get(internet, "http://site.example/"), "(nothing)");
}

TEST_F(BlockingGetTest, WhatIsNoWebAddressGivesNothing) {
  BlockingGet internet(map_);
  for (const std::string& url :
       {std::string(), std::string("http://"), std::string("site.example"),
        std::string("file:///etc/hostname"), std::string("http://127.0.0.1:99999/"),
        std::string("http://127.0.0.1:0/"), std::string("ftp://127.0.0.1/"), std::string("http://[::1/"),
        Url("/reset"), "http://127.0.0.1:" + std::to_string(RefusingPort()) + "/",
        std::string("http://https://127.0.0.1/")}) {
    EXPECT_EQ(Get(internet, url), "(nothing)") << url;
  }
}

TEST_F(BlockingGetTest, BytesBeyondAsciiAreSentAsTheyStandInTheCodePage) {
  BlockingGet internet(map_);
  EXPECT_EQ(Get(internet, Url("/q\xE9?a=\x80 b%20c&d=%E4#part")), "/q%E9?a=%80%20b%20c&d=%E4");
}

TEST_F(BlockingGetTest, ALongBodyIsCut) {
  BlockingGet internet(map_, {.MostBytes = 5'000'000});
  EXPECT_EQ(Get(internet, Url("/endless")).size(), 5'000'000U);
  BlockingGet larger(map_);
  EXPECT_EQ(Get(larger, Url("/endless")).size(), 64'000'000U);
}

TEST_F(BlockingGetTest, SilenceEndsTheWait) {
  BlockingGet internet(map_, {.Silence = std::chrono::milliseconds(50)});
  EXPECT_EQ(Get(internet, Url("/silent")), "(nothing)");
  EXPECT_EQ(Get(internet, Url("/half-silent")), "half");
}

TEST_F(BlockingGetTest, AbortEndsEveryGetAlsoNestedOnes) {
  BlockingGet internet(map_);
  std::string inner;
  // Without a server behind it nobody answers the inner one either.
  QTimer::singleShot(0, [&] {
    QTimer::singleShot(20, [&] { internet.Abort(); });
    inner = Get(internet, Url("/silent"));
  });
  EXPECT_EQ(Get(internet, Url("/half-silent")), "(nothing)");
  EXPECT_EQ(inner, "(nothing)");
  EXPECT_EQ(Get(internet, Url("/")), "home");
}

// The worker of a look-up may outlive its test.
std::atomic<bool> hang = false;

SocketAddresses HangingLookUp(const std::string& host) {
  if (host == "two.example") return {NumericAddress("127.0.0.2")[0], NumericAddress("127.0.0.1")[0]};
  hang.wait(true);
  return {};
}

TEST_F(BlockingGetTest, AHangingLookUpHoldsNothingUp) {
  hang = true;
  auto internet = std::make_unique<BlockingGet>(map_, GetLimits{}, HangingLookUp);
  bool ran = false;
  QTimer::singleShot(5, [&] {
    ran = true;
    internet->Abort();
  });
  EXPECT_EQ(Get(*internet, "http://mute.example/"), "(nothing)");
  EXPECT_TRUE(ran) << "events run during a look-up";
  EXPECT_EQ(Get(*internet, "http://two.example:" + std::to_string(server_.Port()) + "/"), "home")
      << "the second address answers";
  internet.reset();
  hang = false;
  hang.notify_all();
}

}  // namespace
}  // namespace requite::test
