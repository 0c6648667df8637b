// SPDX-License-Identifier: MIT
// The sample server over real loopback sockets: each odd way of answering does what it says.
#include "server.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <thread>

namespace requite::samples {
namespace {

/// How a connection ended for the client.
enum class End { Closed, Reset, StillOpen, Enough };

struct Answer {
  std::string Text;
  End How = End::Closed;

  [[nodiscard]] std::string Body() const {
    const std::size_t end = Text.find("\r\n\r\n");
    return end == std::string::npos ? "" : Text.substr(end + 4);
  }
};

class SampleServer : public testing::Test {
 protected:
  ~SampleServer() override {
    const std::uint64_t one = 1;
    EXPECT_EQ(::write(stop_.Number(), &one, sizeof one), static_cast<ssize_t>(sizeof one));
    thread_.join();
  }

  /// One page, read until its end, until `limit` bytes or until `silence` seconds without a byte.
  Answer Get(const std::string& host, const std::string& path, std::size_t limit = 1 << 20, int silence = 5) {
    const Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(server_.Port());
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const timeval wait{silence, 0};
    ::setsockopt(socket.Number(), SOL_SOCKET, SO_RCVTIMEO, &wait, sizeof wait);
    EXPECT_EQ(::connect(socket.Number(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    const std::string request =
        "GET " + path + " HTTP/1.1\r\nHost: " + host + "\r\nConnection: close\r\nAccept: */*\r\n\r\n";
    EXPECT_EQ(::send(socket.Number(), request.data(), request.size(), 0),
              static_cast<ssize_t>(request.size()));
    Answer answer;
    while (answer.Text.size() < limit) {
      char bytes[8192];
      const ssize_t count = ::recv(socket.Number(), bytes, sizeof bytes, 0);
      if (count > 0) {
        answer.Text.append(bytes, static_cast<std::size_t>(count));
        continue;
      }
      answer.How = count == 0 ? End::Closed : errno == ECONNRESET ? End::Reset : End::StillOpen;
      return answer;
    }
    answer.How = End::Enough;
    return answer;
  }

 private:
  Server server_{Sites(REQUITE_SAMPLE_SITES), 0};
  Descriptor stop_{::eventfd(0, EFD_CLOEXEC)};
  std::thread thread_{[this] { server_.Run(stop_.Number()); }};
};

TEST_F(SampleServer, ServesFilesByHostAndCloses) {
  const Answer page = Get("www.lighthouse-cafe.example", "/links/?x=1");
  EXPECT_TRUE(page.Text.starts_with("HTTP/1.1 200 OK\r\n"));
  EXPECT_NE(page.Body().find("friends.html"), std::string::npos);
  EXPECT_NE(page.Text.find("Content-Length: " + std::to_string(page.Body().size()) + "\r\n"),
            std::string::npos);
  EXPECT_EQ(page.How, End::Closed);
}

TEST_F(SampleServer, NothingOutsideTheSitesIsServed) {
  EXPECT_TRUE(Get("lighthouse-cafe.example", "/../../sample.prj").Text.starts_with("HTTP/1.1 404 "));
  EXPECT_TRUE(Get("..", "/sample.prj").Text.starts_with("HTTP/1.1 404 "));
  EXPECT_TRUE(Get("unknown.example", "/").Text.starts_with("HTTP/1.1 404 "));
  EXPECT_TRUE(Get("lighthouse-cafe.example", "/" + std::string(5000, 'x')).Text.starts_with("HTTP/1.1 404 "));
}

TEST_F(SampleServer, ErrorsAndMovesComeWithTheirPages) {
  EXPECT_NE(Get("quayside-tea.example", "/partners.html").Body().find("That page has gone"),
            std::string::npos);
  EXPECT_TRUE(Get("ferry-times.example", "/timetable.cgi").Text.starts_with("HTTP/1.1 500 "));
  const Answer moved = Get("rope-and-sail.example", "/");
  EXPECT_NE(moved.Text.find("\r\nLocation: http://chandlers.example/partners\r\n"), std::string::npos);
  EXPECT_NE(moved.Body().find("<title>302 Found</title>"), std::string::npos);
  EXPECT_NE(moved.Body().find("href=\"http://chandlers.example/partners\""), std::string::npos);
}

TEST_F(SampleServer, ChunksJoinToThePage) {
  std::string rest = Get("salt-marsh.example", "/birds.html").Body();
  std::string page;
  for (;;) {
    const std::size_t size = std::stoul(rest, nullptr, 16);
    const std::size_t start = rest.find("\r\n") + 2;
    page += rest.substr(start, size);
    ASSERT_EQ(rest.substr(start + size, 2), "\r\n");
    rest.erase(0, start + size + 2);
    if (size == 0) break;
  }
  EXPECT_EQ(rest, "");
  EXPECT_TRUE(page.starts_with("<html>"));
  EXPECT_TRUE(page.ends_with("</html>\n"));
}

TEST_F(SampleServer, OpenSilentAndResetConnections) {
  const Answer open = Get("fog-signal.example", "/", 1 << 20, 1);
  EXPECT_TRUE(open.Text.ends_with("</html>\n"));
  EXPECT_EQ(open.How, End::StillOpen);
  const Answer silent = Get("becalmed.example", "/", 1 << 20, 1);
  EXPECT_EQ(silent.Text, "");
  EXPECT_EQ(silent.How, End::StillOpen);
  const Answer reset = Get("sudden-squall.example", "/");
  EXPECT_FALSE(reset.Text.empty());
  EXPECT_EQ(reset.Text.find("</html>"), std::string::npos);
  EXPECT_EQ(reset.How, End::Reset);
}

TEST_F(SampleServer, BrokenAndEndlessBytes) {
  EXPECT_EQ(Get("bottle-post.example", "/").Text.find("\r\n\r\n"), std::string::npos);
  EXPECT_NE(Get("driftwood.example", "/").Body().find('\0'), std::string::npos);
  EXPECT_TRUE(Get("tin-whistle.example", "/").Body().starts_with("\x1f\x8b"));
  constexpr std::size_t enough = 8 << 20;
  const Answer header = Get("long-swell.example", "/", enough);
  EXPECT_EQ(header.How, End::Enough);
  EXPECT_EQ(header.Text.find("\r\n\r\n"), std::string::npos);
  EXPECT_EQ(Get("doldrums.example", "/", enough).How, End::Enough);
}

TEST_F(SampleServer, ASlowPageIsWholeAndHoldsUpNobody) {
  std::thread other([this] { EXPECT_EQ(Get("driftwood.example", "/", 1 << 20, 1).How, End::Closed); });
  const auto start = std::chrono::steady_clock::now();
  const Answer slow = Get("slow-boat.example", "/", 1 << 20, 1);
  EXPECT_TRUE(slow.Text.ends_with("</html>\n"));
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  other.join();
}

}  // namespace
}  // namespace requite::samples
