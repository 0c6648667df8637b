// SPDX-License-Identifier: MIT
// Secure connections in memory: a client and a server that exchange bytes in any cuts, and servers that lie.
#include "system/tls_filter.h"

#include <gtest/gtest.h>
#include <openssl/ssl.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <random>

#include "platform/files.h"
#include "support/fakes.h"
#include "system/tls_peer.h"

namespace requite::test {
namespace {

using namespace std::string_literals;

/// An authority that the client trusts, a site, and a client.
class TlsFilterTest : public testing::Test {
 protected:
  Certificate authority_ = MakeCertificate({.Authority = true, .Subject = "authority"}, nullptr);
  Certificate site_ = MakeCertificate({.Names = {"site.example"}}, &authority_);
  TemporaryFolder folder_;
  TlsContext context_{TlsStore{InFolder("authorities.pem", authority_), ""}};

  std::string InFolder(const char* name, const Certificate& certificate) {
    WriteFile(folder_.File(name), certificate.Pem());
    return folder_.File(name);
  }
};

/// A client and a server, and what carries bytes between them.
struct Talk {
  Talk(TlsContext& context, const TlsServer& server, std::string_view host = "site.example")
      : Client(context, host), Server(server) {}

  /// Takes what is plain after each piece of `Cut` bytes, of 1 to `-Cut` bytes at random, or the whole for 0.
  void Feed(std::string_view bytes) {
    static std::mt19937 random(1);
    bytes = bytes.substr(0, Budget);
    Budget -= bytes.size();
    while (!bytes.empty()) {
      const auto most = static_cast<std::size_t>(std::abs(Cut));
      const std::size_t piece = Cut == 0 ? bytes.size() : Cut > 0 ? most : 1 + random() % most;
      Client.Feed(bytes.substr(0, piece));
      bytes.remove_prefix(std::min(piece, bytes.size()));
      while (const std::size_t taken = Client.TakePlain(Plain, 1000)) EXPECT_LE(taken, 1000U);
    }
  }

  /// Until neither end has more to send.
  Talk& Exchange() {
    for (;;) {
      const std::string request = Client.TakeOutgoing();
      Server.Feed(request);
      const std::string answer = Server.TakeOutgoing();
      if (request.empty() && answer.empty()) return *this;
      Feed(answer);
    }
  }

  [[nodiscard]] std::pair<TlsState, TlsFailure> Outcome() const { return {Client.State(), Client.Failure()}; }

  TlsFilter Client;
  ServerEnd Server;
  std::string Plain;
  int Cut = 0;
  std::size_t Budget = std::string::npos;  ///< bytes that the network still carries to the client
};

constexpr std::pair kOpen{TlsState::Open, TlsFailure::None};

TEST_F(TlsFilterTest, APageComesWholeInEveryCutAndTheNextConnectionIsResumed) {
  std::string page(100'000, '\0');
  std::generate(page.begin(), page.end(), [i = 0]() mutable { return static_cast<char>(i++ * 7 / 3); });
  for (const int version : {TLS1_2_VERSION, TLS1_3_VERSION}) {
    const TlsServer server(version, site_);
    context_.Sessions().Forget("site.example");
    bool resumed = false;
    for (const int cut : {0, 1, -3, -300, -20'000}) {
      SCOPED_TRACE(testing::Message() << version << " in pieces of " << cut);
      Talk talk(context_, server, "Site.Example.");
      talk.Cut = cut;
      talk.Client.Write("request");  // held until the handshake is complete
      ASSERT_EQ(talk.Exchange().Outcome(), kOpen);
      EXPECT_TRUE(resumed || talk.Server.ServerName() == "site.example");
      EXPECT_EQ(talk.Client.Resumed(), resumed);
      talk.Server.Send(page.substr(0, 50'000));
      if (version == TLS1_3_VERSION) SSL_key_update(talk.Server.Library(), SSL_KEY_UPDATE_REQUESTED);
      talk.Server.Send(page.substr(50'000));
      talk.Exchange().Client.Write(", more");  // with the keys after the update
      EXPECT_EQ(talk.Exchange().Server.Request, "request, more");
      talk.Server.SendClosing();
      EXPECT_EQ(talk.Exchange().Client.State(), TlsState::Ended);
      EXPECT_TRUE(talk.Plain == page);
      resumed = true;
    }
  }
}

TEST_F(TlsFilterTest, EveryCertificateGetsItsVerdict) {
  const Certificate middle = MakeCertificate({.Authority = true, .Subject = "middle"}, &authority_);
  const Certificate old =
      MakeCertificate({.EndsInDays = -1, .Authority = true, .Subject = "old"}, &authority_);
  const Certificate unknown = MakeCertificate({.Authority = true, .Subject = "unknown"}, nullptr);
  const Certificate liar = MakeCertificate({.Authority = true, .Subject = "authority"}, nullptr);
  const Certificate plain = MakeCertificate({.Subject = "plain"}, &authority_);
  std::array<Certificate, 14> longChain;
  std::vector<const Certificate*> chain;
  for (std::size_t i = 0; i < longChain.size(); ++i) {
    const Certificate* issuer = i == 0 ? &authority_ : chain.back();
    longChain[i] = MakeCertificate({.Authority = true, .Subject = "link " + std::to_string(i)}, issuer);
    chain.push_back(&longChain[i]);
  }
  std::vector<std::string> many(10'000);
  std::generate(many.begin(), many.end(), [i = 0]() mutable { return std::to_string(i++) + ".a"; });
  std::vector<std::string> huge = many;
  for (std::string& name : huge) name += ".site.example";

  using enum TlsFailure;
  const CertificateWish a{.Names = {"a.example"}};
  const Certificate* good = &authority_;
  const struct {
    const char* Case;
    CertificateWish Wish;
    const Certificate* Issuer;
    std::vector<const Certificate*> Chain;
    std::string Host;
    TlsFailure Expected;
  } rows[] = {
      {"valid", a, good, {}, "a.example", None},
      {"expired", {.Names = a.Names, .EndsInDays = 0}, good, {}, "a.example", Expired},
      {"too early", {.Names = a.Names, .BeginsInDays = 1}, good, {}, "a.example", NotYetValid},
      {"other host", a, good, {}, "b.example", OtherHost},
      {"domain of the host", a, good, {}, "b.a.example", OtherHost},
      {"self-signed", a, nullptr, {}, "a.example", NotTrusted},
      {"unknown authority", a, &unknown, {&unknown}, "a.example", NotTrusted},
      {"false authority", a, &liar, {}, "a.example", NotTrusted},
      {"signed by a site", a, &plain, {&plain}, "a.example", NotTrusted},
      {"middle sent", a, &middle, {&middle}, "a.example", None},
      {"middle missing", a, &middle, {}, "a.example", NotTrusted},
      {"middle expired", a, &old, {&old}, "a.example", Expired},
      {"long chain", a, chain.back(), chain, "a.example", NotTrusted},
      {"wildcard", {.Names = {"*.a.org"}}, good, {}, "b.a.org", None},
      {"wildcard, two labels", {.Names = {"*.a.org"}}, good, {}, "c.b.a.org", OtherHost},
      {"partial wildcard", {.Names = {"b*.a.org"}}, good, {}, "bc.a.org", OtherHost},
      {"address", {.Names = {"192.0.2.1"}}, good, {}, "192.0.2.1", None},
      {"address, brackets", {.Names = {"2001:db8::1"}}, good, {}, "[2001:DB8:0::1]", None},
      {"other address", {.Names = {"192.0.2.1"}}, good, {}, "192.0.2.2", OtherHost},
      {"NUL in a name", {.Names = {"a.example\0.evil"s}}, good, {}, "a.example", OtherHost},
      {"NUL in the host", {.Names = {"192.0.2.1"}}, good, {}, "192.0.2.1\0.example"s, Other},
      {"name in the subject", {.Subject = "a.example"}, good, {}, "a.example", None},
      {"NUL in the subject", {.Subject = "a.example\0.evil"s}, good, {}, "a.example", OtherHost},
      {"subject beside names", {.Names = a.Names, .Subject = "b.example"}, good, {}, "b.example", OtherHost},
      {"name of all hosts", {.Names = {"*"}}, good, {}, "localhost", OtherHost},
      {"name of a top domain", {.Names = {"*.example"}}, good, {}, "a.example", OtherHost},
      {"100 needless ones", a, good, {100, &unknown}, "a.example", None},
      {"huge chain", a, good, {1000, &unknown}, "a.example", Other},
      {"10,000 names", {.Names = many}, good, {}, "9999.a", None},
      {"10,000 others", {.Names = many}, good, {}, "a.example", OtherHost},
      {"too large", {.Names = huge}, good, {}, "9999.a.site.example", Other},
      {"empty host", a, good, {}, "", Other},
      {"host with a dot first", a, good, {}, ".example", Other},
  };
  for (const auto& row : rows) {
    const Certificate certificate = MakeCertificate(row.Wish, row.Issuer);
    for (const auto& [version, cut] :
         {std::pair{TLS1_2_VERSION, 0}, {TLS1_2_VERSION, -300}, {TLS1_3_VERSION, 0}, {TLS1_3_VERSION, 1}}) {
      SCOPED_TRACE(testing::Message() << row.Case << ", " << version << " in pieces of " << cut);
      context_.Sessions().Forget(row.Host);
      const TlsServer server(version, certificate, row.Chain);
      Talk talk(context_, server, row.Host);
      talk.Cut = cut;
      const auto [state, failure] = talk.Exchange().Outcome();
      EXPECT_EQ(failure, row.Expected) << Words(failure);
      EXPECT_EQ(state, row.Expected == None ? TlsState::Open : TlsState::Failed);
      EXPECT_TRUE(row.Expected == None || context_.Sessions().Find(row.Host) == nullptr);
    }
  }
}

TEST_F(TlsFilterTest, AServerWithoutAUsableVersionOrWithoutTlsIsKnownAsThat) {
  const TlsServer good(TLS1_3_VERSION, site_);
  // A server of before TLS 1.2 that does not know how to refuse: it answers with its own version.
  const std::string oldHello =
      "\x16\x03\x01\0\x2A\x02\0\0\x26\x03\x01"s + std::string(32, 'r') + "\0\xC0\x13\0"s;
  const struct {
    const char* Case;
    std::string Answer;
    TlsFailure Expected;
  } rows[] = {
      {"plain HTTP", "HTTP/1.1 400 Bad Request\r\n\r\n<html>", TlsFailure::NotTls},
      {"another protocol", "SSH-2.0-server\r\n", TlsFailure::NotTls},
      {"zeros", std::string(100, '\0'), TlsFailure::NotTls},
      {"data instead of a hello", "\x17\x03\x03\0\x05hello"s, TlsFailure::NotTls},
      {"TLS 1.0", oldHello, TlsFailure::ProtocolVersion},
      {"alert: protocol version", "\x15\x03\x01\0\x02\x02\x46"s, TlsFailure::ProtocolVersion},
      {"alert: handshake failure", "\x15\x03\x01\0\x02\x02\x28"s, TlsFailure::Alert},
      {"alert: unknown name", "\x15\x03\x03\0\x02\x02\x70"s, TlsFailure::Alert},
      {"nothing", "", TlsFailure::Cut},
      {"half a record", "\x16\x03\x03\x10\0\x02"s, TlsFailure::Cut},
  };
  for (const auto& row : rows) {
    for (const int cut : {0, 1}) {
      SCOPED_TRACE(row.Case);
      ASSERT_EQ(Talk(context_, good).Exchange().Outcome(), kOpen);
      Talk talk(context_, good);
      talk.Cut = cut;
      talk.Feed(row.Answer);
      talk.Client.FeedEnd();
      EXPECT_EQ(talk.Outcome(), std::pair(TlsState::Failed, row.Expected)) << Words(talk.Client.Failure());
      EXPECT_EQ(talk.Plain, "");
      EXPECT_EQ(context_.Sessions().Hosts(), 0U) << "the session that was offered may be the reason";
    }
  }
  const TlsServer outdated(TLS1_VERSION, site_);
  EXPECT_EQ(Talk(context_, outdated).Exchange().Client.Failure(), TlsFailure::ProtocolVersion);
}

TEST_F(TlsFilterTest, ACutAnywhereIsACutHandshakeOrTheEndOfThePage) {
  const std::string page = "a short page";
  for (const int version : {TLS1_2_VERSION, TLS1_3_VERSION}) {
    const TlsServer server(version, site_);
    bool whole = false;
    for (std::size_t cut = 0; !whole; ++cut) {
      Talk talk(context_, server);
      talk.Budget = cut;
      talk.Client.Write("request");
      if (!talk.Exchange().Server.Request.empty()) talk.Server.Send(page);
      const bool opened = talk.Exchange().Client.State() == TlsState::Open;
      talk.Client.FeedEnd();
      talk.Client.TakePlain(talk.Plain);
      ASSERT_EQ(talk.Client.State(), opened ? TlsState::Ended : TlsState::Failed) << cut;
      ASSERT_EQ(talk.Client.Failure(), opened ? TlsFailure::None : TlsFailure::Cut) << cut;
      whole = talk.Plain == page;
      ASSERT_TRUE(whole || talk.Plain.empty()) << "half a record is not handed out";
      ASSERT_LT(cut, 4000U);
    }
  }
}

TEST_F(TlsFilterTest, WhatCameBeforeAFaultIsHandedOut) {
  const struct {
    const char* Case;
    std::string After;
  } rows[] = {
      {"garbage", "HTTP/1.1 200 OK\r\n"},
      {"a record of other keys", "\x17\x03\x03\0\x20"s + std::string(32, 'x')},
      {"a record too large", "\x17\x03\x03\xFF\xFF"s + std::string(100, 'x')},
      {"an alert without keys", "\x15\x03\x03\0\x02\x02\x28"s},
  };
  for (const auto& row : rows) {
    for (const int version : {TLS1_2_VERSION, TLS1_3_VERSION}) {
      SCOPED_TRACE(testing::Message() << row.Case << ", " << version);
      const TlsServer server(version, site_);
      Talk talk(context_, server);
      talk.Exchange().Server.Send(std::string(40'000, 'p'));
      talk.Client.Feed(talk.Server.TakeOutgoing() + row.After);
      talk.Client.FeedEnd();
      while (talk.Client.TakePlain(talk.Plain, 999) != 0) continue;
      EXPECT_EQ(talk.Plain, std::string(40'000, 'p'));
      EXPECT_EQ(talk.Outcome(), std::pair(TlsState::Failed, TlsFailure::Other));
      EXPECT_NE(talk.Client.TakeOutgoing(), "") << "the server is told";
      EXPECT_EQ(context_.Sessions().Find("site.example"), nullptr) << "a broken connection is not resumed";
    }
  }
}

TEST_F(TlsFilterTest, AClientCertificateIsNeverSentAndADemandIsARefusal) {
  for (const int version : {TLS1_2_VERSION, TLS1_3_VERSION}) {
    const TlsServer asks(version, site_, {}, ClientCertificate::Asked);
    EXPECT_EQ(Talk(context_, asks).Exchange().Outcome(), kOpen);
    context_.Sessions().Forget("site.example");
    const TlsServer demands(version, site_, {}, ClientCertificate::Demanded);
    EXPECT_EQ(Talk(context_, demands).Exchange().Client.Failure(), TlsFailure::Alert);
  }
}

TEST_F(TlsFilterTest, AnAddressIsNotSentAsAName) {
  const auto names = [&](const char* host) {
    return TlsFilter(context_, host).TakeOutgoing().find(host) != std::string::npos;
  };
  EXPECT_TRUE(names("site.example"));
  EXPECT_FALSE(names("192.0.2.1"));
}

TEST_F(TlsFilterTest, ARenegotiationIsRefused) {
  const TlsServer server(TLS1_2_VERSION, site_);
  Talk talk(context_, server);
  SSL* library = talk.Exchange().Server.Library();
  SSL_renegotiate(library);
  SSL_do_handshake(library);
  talk.Feed(talk.Server.TakeOutgoing());
  EXPECT_EQ(talk.Outcome(), kOpen);
  const std::string answer = talk.Client.TakeOutgoing();
  EXPECT_EQ(answer.substr(0, 1), "\x15") << "an alert, not a new handshake";
  EXPECT_LT(answer.size(), 64U);
}

TEST_F(TlsFilterTest, ARequestThatMeetsHalfATicketGoesOutAfterTheRest) {
  const TlsServer server(TLS1_3_VERSION, site_);
  const auto enlarge = [](SSL* library, void*) {
    static const std::string load(2000, '\0');
    return SSL_SESSION_set1_ticket_appdata(SSL_get_session(library), load.data(), load.size());
  };
  SSL_CTX_set_session_ticket_cb(server.Shared.get(), enlarge, nullptr, nullptr);
  SSL_CTX_set_max_send_fragment(server.Shared.get(), 512);  // a ticket comes in several records
  Talk talk(context_, server);
  talk.Server.Feed(talk.Client.TakeOutgoing());
  talk.Feed(talk.Server.TakeOutgoing());
  talk.Server.Feed(talk.Client.TakeOutgoing());
  const std::string tickets = talk.Server.TakeOutgoing();
  for (const char byte : tickets) {
    talk.Client.Write("r");
    talk.Feed({&byte, 1});
  }
  EXPECT_EQ(talk.Exchange().Server.Request, std::string(tickets.size(), 'r'));
}

TEST_F(TlsFilterTest, EveryConnectionIsResumedWhenTheServerRenewsTicketsToo) {
  const auto renew = [](SSL*, SSL_SESSION*, const unsigned char*, std::size_t, SSL_TICKET_STATUS found,
                        void*) {
    const bool known = found == SSL_TICKET_SUCCESS || found == SSL_TICKET_SUCCESS_RENEW;
    return known ? SSL_TICKET_RETURN_USE_RENEW : SSL_TICKET_RETURN_IGNORE_RENEW;
  };
  for (const int version : {TLS1_2_VERSION, TLS1_3_VERSION}) {
    context_.Sessions().Forget("site.example");
    const TlsServer server(version, site_);
    SSL_CTX_set_session_ticket_cb(server.Shared.get(), nullptr, renew, nullptr);
    for (int i = 0; i < 4; ++i)
      EXPECT_EQ(Talk(context_, server).Exchange().Client.Resumed(), i > 0) << version;
  }
}

TEST_F(TlsFilterTest, SessionsAreKeptForABoundedNumberOfHostsAndForAnHour) {
  TlsSessions sessions;
  const auto host = [](std::size_t i) { return "host" + std::to_string(i); };
  for (std::size_t i = 0; i < TlsSessions::kMostHosts + 10; ++i) {
    TlsSession session(SSL_SESSION_new());
    SSL_SESSION_set1_id(session.get(), reinterpret_cast<const unsigned char*>("id"), 2);
    sessions.Keep(host(i), std::move(session), std::time(nullptr));
    ASSERT_NE(sessions.Find(host(0)), nullptr) << "what is used stays";
  }
  EXPECT_EQ(sessions.Find(host(1)), nullptr);
  EXPECT_EQ(sessions.Hosts(), TlsSessions::kMostHosts);

  // New tickets do not make the check of the certificate younger.
  const TlsServer server(TLS1_3_VERSION, site_);
  ASSERT_EQ(Talk(context_, server).Exchange().Outcome(), kOpen);
  const auto age = [&](std::time_t seconds) {
    ssl_session_st* session = context_.Sessions().Find("site.example");
    SSL_SESSION_up_ref(session);
    context_.Sessions().Keep("site.example", TlsSession(session), std::time(nullptr) - seconds);
  };
  age(3000);
  EXPECT_TRUE(Talk(context_, server).Exchange().Client.Resumed());
  EXPECT_LE(context_.Sessions().Checked("site.example"), std::time(nullptr) - 3000);
  age(TlsSessions::kMostSeconds + 10);
  EXPECT_FALSE(Talk(context_, server).Exchange().Client.Resumed());
}

TEST_F(TlsFilterTest, TheVariablesNameTheStoreAndAnEmptyOneIsKnown) {
  const TemporaryFolder folders;
  const std::string file = InFolder("other.pem", authority_);
  const struct {
    const char* Case;
    std::string File, Folders;
    bool HasAuthorities;
  } rows[] = {
      {"a file", file, "", true},
      {"the second folder", "", "/nowhere:" + folders.Folder.Path, true},
      {"missing", "/nowhere.pem", "/nowhere", false},
      {"a folder without names by hash", "/nowhere.pem", folder_.Folder.Path, false},
  };
  WriteFile(folders.File(authority_.HashName()), authority_.Pem());
  const TlsServer server(TLS1_3_VERSION, site_);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.Case);
    ::setenv("SSL_CERT_FILE", row.File.c_str(), 1);
    ::setenv("SSL_CERT_DIR", row.Folders.c_str(), 1);
    TlsContext context;
    EXPECT_EQ(context.HasAuthorities(), row.HasAuthorities);
    const TlsFailure expected = row.HasAuthorities ? TlsFailure::None : TlsFailure::NotTrusted;
    EXPECT_EQ(Talk(context, server).Exchange().Client.Failure(), expected);
  }
  ::unsetenv("SSL_CERT_FILE");
  ::unsetenv("SSL_CERT_DIR");
}

}  // namespace
}  // namespace requite::test
