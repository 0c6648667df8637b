// SPDX-License-Identifier: MIT
// The sample server over real loopback sockets: each odd way of answering does what it says.
#include "server.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>
#include <thread>

namespace requite::samples {
namespace {

/// What stands behind the headers of an answer.
std::string BodyOf(const std::string& answer) {
  const std::size_t end = answer.find("\r\n\r\n");
  return end == std::string::npos ? "" : answer.substr(end + 4);
}

class SampleServer : public testing::Test {
 protected:
  ~SampleServer() override {
    const std::uint64_t one = 1;
    EXPECT_EQ(::write(stop_.Number(), &one, sizeof one), static_cast<ssize_t>(sizeof one));
    thread_.join();
  }

  /// One answer, read until its end, until `limit` bytes or until 5 seconds without a byte.
  std::string Get(const std::string& host, const std::string& path, std::size_t limit = 1 << 20) {
    const Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(server_.Port());
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const timeval wait{5, 0};
    ::setsockopt(socket.Number(), SOL_SOCKET, SO_RCVTIMEO, &wait, sizeof wait);
    EXPECT_EQ(::connect(socket.Number(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    const std::string request =
        "GET " + path + " HTTP/1.1\r\nHost: " + host + "\r\nConnection: close\r\nAccept: */*\r\n\r\n";
    EXPECT_EQ(::send(socket.Number(), request.data(), request.size(), 0),
              static_cast<ssize_t>(request.size()));
    std::string answer;
    char bytes[8192];
    while (answer.size() < limit) {
      const ssize_t count = ::recv(socket.Number(), bytes, sizeof bytes, 0);
      if (count <= 0) break;
      answer.append(bytes, static_cast<std::size_t>(count));
    }
    return answer;
  }

 private:
  Server server_{Sites(REQUITE_SAMPLE_SITES), 0};
  Descriptor stop_{::eventfd(0, EFD_CLOEXEC)};
  std::thread thread_{[this] { server_.Run(stop_.Number()); }};
};

TEST_F(SampleServer, ServesFilesByHostAndCloses) {
  const std::string page = Get("www.lighthouse-cafe.example", "/links/?x=1");
  EXPECT_TRUE(page.starts_with("HTTP/1.1 200 OK\r\n"));
  EXPECT_NE(BodyOf(page).find("friends.html"), std::string::npos);
  EXPECT_NE(page.find("Content-Length: " + std::to_string(BodyOf(page).size()) + "\r\n"), std::string::npos);
}

TEST_F(SampleServer, NothingOutsideTheSitesIsServed) {
  EXPECT_TRUE(Get("lighthouse-cafe.example", "/../../sample.prj").starts_with("HTTP/1.1 404 "));
  EXPECT_TRUE(Get("..", "/sample.prj").starts_with("HTTP/1.1 404 "));
  EXPECT_TRUE(Get("unknown.example", "/").starts_with("HTTP/1.1 404 "));
  EXPECT_TRUE(Get("lighthouse-cafe.example", "/" + std::string(5000, 'x')).starts_with("HTTP/1.1 404 "));
}

TEST_F(SampleServer, BrokenAndEndlessBytes) {
  EXPECT_EQ(Get("bottle-post.example", "/").find("\r\n\r\n"), std::string::npos);
  EXPECT_NE(BodyOf(Get("driftwood.example", "/")).find('\0'), std::string::npos);
  constexpr std::size_t enough = 8 << 20;
  const std::string header = Get("long-swell.example", "/", enough);
  EXPECT_GE(header.size(), enough);
  EXPECT_EQ(header.find("\r\n\r\n"), std::string::npos);
  EXPECT_GE(Get("doldrums.example", "/", enough).size(), enough);
}

}  // namespace
}  // namespace requite::samples
