// SPDX-License-Identifier: MIT
// Page connections with secure hosts: which port answers a page, and what happens when the secure one does
// not.
#include <gtest/gtest.h>
#include <openssl/ssl.h>
#include <sys/eventfd.h>

#include <atomic>
#include <thread>

#include "platform/files.h"
#include "qt/loop_rig.h"
#include "qt/services/code_page.h"
#include "support/fakes.h"
#include "system/connection_recorder.h"
#include "system/curl_internet.h"
#include "system/local_server.h"
#include "system/page_connection.h"
#include "system/tls_peer.h"

namespace requite::test {
namespace {

using std::chrono::milliseconds;

constexpr const char* kHost = "site.example";
constexpr milliseconds kPageTimeout{400};

class SecureConnectionTest : public testing::Test {
 protected:
  SecureConnectionTest() {
    WriteFile(folder_.File("authorities.pem"), authority_.Pem());
    map_.Add({kHost, 443, {"127.0.0.1", secureServer_.Port()}});
    map_.Add({kHost, 80, {"127.0.0.1", plainServer_.Port()}});
  }

  /// The body that a page of the host has now, or "silence".
  std::string Page() {
    recorder_.Events.clear();
    recorder_.Data.clear();
    recorder_.Closes = 0;
    connection_.Connect(kHost, 80);
    const bool closed = rig_.Loop.RunUntil([&] { return recorder_.Closes == 1; }, 2 * kPageTimeout);
    return closed ? recorder_.Data : "silence";
  }
  /// After the handshake and the request: what the server sends.
  void ServeSecurely(ServedConnection& client, const std::function<void(ServerEnd&)>& act) {
    ServerEnd server(tls_);
    if (!ReadSecureRequest(client, server)) return;
    ++secureRequests_;
    act(server);
    client.Send(server.TakeOutgoing());
  }
  void ServePage(ServedConnection& client) {
    ServeSecurely(client, [](ServerEnd& server) {
      server.Send("secure");
      server.SendClosing();
    });
  }

  LoopRig rig_;
  TemporaryFolder folder_;
  Certificate authority_ = MakeCertificate({.Authority = true, .Subject = "authority"}, nullptr);
  Certificate site_ = MakeCertificate({.Names = {kHost}}, &authority_);
  TlsServer tls_{TLS1_3_VERSION, site_};
  std::atomic<int> secureRequests_ = 0;
  std::atomic<int> secureConnections_ = 0;
  std::function<void(ServedConnection&)> onSecure_ = [this](ServedConnection& client) { ServePage(client); };
  LocalServer secureServer_{[this](ServedConnection& client) {
    ++secureConnections_;
    onSecure_(client);
  }};
  LocalServer plainServer_{[](ServedConnection& client) {
    client.ReadRequest();
    client.Send("plain");
  }};
  SocketPoller poller_{rig_.Descriptors, rig_.Guard};
  NameResolver resolver_{poller_};
  ConnectMap map_;
  bool isOn_ = true;
  SecureHosts secure_{{[this] { return isOn_; }, [] { return kPageTimeout; }},
                      TlsStore{folder_.File("authorities.pem"), ""}};
  PageConnection connection_{poller_, resolver_, map_, &secure_};
  Recorder recorder_{connection_};
};

TEST_F(SecureConnectionTest, PagesComeFromTheSecurePortWithTheToldEvents) {
  for (int page = 0; page < 3; ++page) {
    EXPECT_EQ(Page(), "secure");
    EXPECT_EQ(recorder_.Events, kWholePage);
  }
  EXPECT_EQ(secureRequests_, 3);
}

TEST_F(SecureConnectionTest, WithTheSettingOffNothingReachesTheSecurePort) {
  isOn_ = false;
  EXPECT_EQ(Page(), "plain");
  EXPECT_EQ(secureConnections_, 0);
}

TEST_F(SecureConnectionTest, WhatFailsBeforeTheHandshakeIsCompleteGoesToThePlainPortAndIsRemembered) {
  const Certificate other = MakeCertificate({.Names = {"other.example"}}, &authority_);
  const TlsServer wrongName(TLS1_3_VERSION, other);
  const auto withWrongName = [&](ServedConnection& client) {
    ServerEnd server(wrongName);
    ReadSecureRequest(client, server);
  };
  const struct {
    const char* Name;
    std::function<void(ServedConnection&)> Act;
    std::string Fault;
  } kRows[] = {
      {"closes at once", [](ServedConnection&) {}, ""},
      {"silent", [](ServedConnection& client) { client.WaitForPeer(); }, ""},
      {"wrong name", withWrongName, "Certificate is for another host"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.Name);
    SecureHosts fresh({[] { return true; }, [] { return kPageTimeout; }},
                      TlsStore{folder_.File("authorities.pem"), ""});
    PageConnection connection(poller_, resolver_, map_, &fresh);
    Recorder recorder(connection);
    secureConnections_ = 0;
    onSecure_ = row.Act;
    for (int page = 1; page <= 2; ++page) {
      connection.Connect(kHost, 80);
      ASSERT_TRUE(rig_.Until([&] { return recorder.Closes == page; }));
    }
    EXPECT_EQ(recorder.Data, "plainplain");
    EXPECT_EQ(secureConnections_, 1);
    const Names twice(2, "site.example: " + row.Fault);  // the second time from memory
    EXPECT_EQ(recorder.Faults, row.Fault.empty() ? Names() : twice);
  }
}

TEST_F(SecureConnectionTest, AHostThatWorkedIsGivenUpAfterItsSecondFailure) {
  EXPECT_EQ(Page(), "secure");
  onSecure_ = [](ServedConnection&) {};
  EXPECT_EQ(Page(), "plain");
  onSecure_ = [this](ServedConnection& client) { ServePage(client); };
  EXPECT_EQ(Page(), "secure") << "one failure is forgiven";
  onSecure_ = [](ServedConnection&) {};
  EXPECT_EQ(Page(), "plain");
  EXPECT_EQ(Page(), "plain");
  EXPECT_EQ(secureConnections_, 5);
  onSecure_ = [this](ServedConnection& client) { ServePage(client); };
  EXPECT_EQ(Page(), "plain") << "remembered";
}

/// A second small packet would wait for the server's acknowledgement of the first: 40 ms a page.
TEST_F(SecureConnectionTest, TheRequestLeavesTogetherWithTheEndOfAResumedHandshake) {
  for (const int version : {TLS1_2_VERSION, TLS1_3_VERSION}) {
    const TlsServer tls(version, site_);
    Names seen;
    onSecure_ = [&](ServedConnection& client) {
      ServerEnd server(tls);
      int reads = 0;
      for (std::string bytes; server.Request.empty() && !(bytes = client.ReadSome()).empty(); ++reads) {
        server.Feed(bytes);
        client.Send(server.TakeOutgoing());
      }
      const bool resumed = SSL_session_reused(server.Library()) == 1;
      seen.push_back((resumed ? "resumed " : "full ") + std::to_string(reads));
      server.Send("secure");
      server.SendClosing();
      client.Send(server.TakeOutgoing());
    };
    EXPECT_EQ(Page() + Page(), "securesecure");
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen.back(), "resumed 2") << version;  // the first message, then all the rest
  }
}

TEST_F(SecureConnectionTest, GetsTrustTheSameAuthorities) {
  onSecure_ = [this](ServedConnection& client) {
    ServeSecurely(client, [](ServerEnd& server) { server.Send("HTTP/1.1 200 OK\r\n\r\nsecure"); });
  };
  const std::string file = folder_.File("authorities.pem");
  TemporaryFolder byHash;
  WriteFile(byHash.File(authority_.HashName()), authority_.Pem());
  WriteFile(folder_.File("empty.pem"), "");
  const struct {
    TlsStore Store;
    std::optional<std::string> Page;
  } kRows[] = {
      {{file, ""}, "secure"},
      {{folder_.File("missing.pem"), byHash.Folder.Path}, "secure"},
      {{folder_.File("empty.pem"), "/nowhere:" + byHash.Folder.Path}, "secure"},
      {{folder_.File("missing.pem"), ""}, std::nullopt},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.Store.File + ", " + row.Store.Folders);
    CurlInternet internet(rig_.Descriptors, map_, AsciiHost, {}, row.Store);
    EXPECT_EQ(Gets(internet).OpenUrl("https://site.example/", "Mozilla"), row.Page);
  }
}

/// A server could else send messages without end that are no data, and nothing else would ever happen.
TEST_F(SecureConnectionTest, OtherEventsComeBetweenTwoPiecesOfOneServer) {
  constexpr std::size_t kSize = 1024 * 1024;
  onSecure_ = [this](ServedConnection& client) {
    ServeSecurely(client, [](ServerEnd& server) {
      server.Send(std::string(kSize, 'x'));
      server.SendClosing();
    });
  };
  int turns = 0;
  PolledSocket other(poller_, [&](short) { ++turns; });
  other.Open(::eventfd(1, EFD_CLOEXEC), POLLIN);  // always ready
  int piecesInOneTurn = 0;
  recorder_.OnData = [&, last = -1]() mutable {
    if (std::exchange(last, turns) == turns) ++piecesInOneTurn;
  };
  EXPECT_EQ(Page().size(), kSize);
  EXPECT_EQ(piecesInOneTurn, 0);
}

TEST_F(SecureConnectionTest, AClosedAttemptLeavesNothingBehind) {
  onSecure_ = [](ServedConnection& client) { client.WaitForPeer(); };
  connection_.Connect(kHost, 80);
  ASSERT_TRUE(rig_.Until([&] { return secureConnections_ == 1; }));
  connection_.Close();
  rig_.Loop.RunFor(kPageTimeout);
  EXPECT_EQ(recorder_.Events, Names{});
}

}  // namespace
}  // namespace requite::test
