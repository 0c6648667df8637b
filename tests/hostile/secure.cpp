// SPDX-License-Identifier: MIT
// Secure servers that are old, strange, broken, or that answer only once. The link that is looked for is on
// the plain port of each: one that is found without need was asked for in the open.
#include <openssl/ssl.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>
#include <utility>

#include "hostile/secure_acts.h"

namespace requite::hostile {
namespace {

using namespace std::string_literals;
using test::ClientCertificate;

constexpr std::size_t kMebibyte = 1024 * 1024;
const std::string kPage = Joined({kHeader, kLink});

std::string SiteOf(const char* name) { return std::string(name) + ".secure.example"; }

/// Once the handshake is complete nothing may reach the plain port.
Behaviour Kept(const char* name, const char* verdict, Act act, int linksExpected = 1, int connections = 1) {
  return {name,          verdict,      Page(std::string(kLink)),
          linksExpected, SiteOf(name), SecurePort{.Act = std::move(act), .Connections = connections}};
}

Behaviour Kept13(const char* name, const char* verdict, SecureAct act) {
  return Kept(name, verdict, Securely(GoodServer(TLS1_3_VERSION), std::move(act)));
}

/// The page comes from the plain port after one attempt.
Behaviour GivenUp(const char* name, Act act, const std::string& fault = {}) {
  const std::string error = fault.empty() ? fault : fault + "\t" + SiteOf(name);
  return {name, kFound,       Page(std::string(kLink)),
          1,    SiteOf(name), SecurePort{.Act = std::move(act), .PlainConnections = 1, .Error = error}};
}

Behaviour Closed(const char* name, std::uint16_t (*port)()) {
  Behaviour row = GivenUp(name, {});
  row.Secure->Connections = 0;
  row.Secure->Closed = port;
  return row;
}

void UpdateKeys(ServerEnd& server, int kind) {
  SSL_key_update(server.Library(), kind);
  SSL_do_handshake(server.Library());
}

void SendTicket(ServerEnd& server) {
  SSL_new_session_ticket(server.Library());
  SSL_do_handshake(server.Library());
}

void ManyUpdatesAndTickets(ServerEnd& server, ServedConnection& client) {
  server.Send(kHeader);
  for (int i = 0; i < 500; ++i) {
    UpdateKeys(server, SSL_KEY_UPDATE_REQUESTED);
    SendTicket(server);
    server.Send("<p>");
    Flush(server, client);
  }
  SecureAnswer(std::string(kLink))(server, client);
  Flush(server, client);
  client.WaitForPeer();  // an end before the answers have come would be a reset
}

void AskForAnswers(ServerEnd& server) { UpdateKeys(server, SSL_KEY_UPDATE_REQUESTED); }

/// Made beforehand, so that they come faster than they can be read.
void ManyUpdatesAtOnce(ServerEnd& server) {
  for (int i = 0; i < 2'000; ++i) UpdateKeys(server, SSL_KEY_UPDATE_NOT_REQUESTED);
}

SecureAct ForEver(void (*act)(ServerEnd&)) {
  return [act](ServerEnd& server, ServedConnection& client) {
    do act(server);
    while (Flush(server, client));
  };
}

/// The link ends with the last byte that a record can have.
SecureAct GreatestRecord() {
  constexpr std::size_t kRecord = 16 * 1024;
  return SecureAnswer(Joined({kHeader, Times(kRecord - kPage.size(), "x"), kLink}));
}

void OneByteRecords(ServerEnd& server, ServedConnection&) {
  for (const char byte : kPage) server.Send({&byte, 1});
}

/// Each byte of each record comes alone.
void DripRecords(ServerEnd& server, ServedConnection& client) {
  server.Send(kPage);
  for (const char byte : server.TakeOutgoing()) {
    client.Send({&byte, 1});
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

void MoreThanIsTaken(ServerEnd& server, ServedConnection& client) {
  const std::string wind = Times(kMebibyte / 32, "<p>and not a breath of wind</p>\n");
  server.Send(kPage);
  for (int i = 0; i < 66 && Flush(server, client); ++i) server.Send(wind);
  server.Send(kLink);
}

SecureAct ThenReset(std::string bytes) {
  return [bytes = std::move(bytes)](ServerEnd& server, ServedConnection& client) {
    server.Send(bytes);
    Flush(server, client);
    std::this_thread::sleep_for(std::chrono::milliseconds(100));  // a reset takes back what was not read
    client.Reset();
  };
}

/// The page, then bytes as they are.
SecureAct ThenBytes(std::string bytes) {
  return [bytes = std::move(bytes)](ServerEnd& server, ServedConnection& client) {
    server.Send(kPage);
    Flush(server, client);
    client.Send(bytes);
    client.WaitForPeer();
  };
}

/// A server that gets garbage sends a fatal alert under its keys.
void AlertInPage(ServerEnd& server, ServedConnection& client) {
  server.Send(kPage);
  server.Feed("\x17\x03\x03\0\x20"s + std::string(32, 'x'));
  Flush(server, client);
  client.WaitForPeer();
}

void Renegotiate(ServerEnd& server, ServedConnection& client) {
  server.Send(kPage);
  SSL_renegotiate(server.Library());
  SSL_do_handshake(server.Library());
  Flush(server, client);
  server.Feed(client.ReadSome());
  Flush(server, client);
  client.WaitForPeer();
}

/// Says farewell, and goes on as if it had not.
void AfterFarewell(ServerEnd& server, ServedConnection& client) {
  server.Send(kHeader);
  server.SendClosing();
  Flush(server, client);
  client.Send("\x17\x03\x03\0\x20"s + std::string(32, 'x'));
  client.WaitForPeer();
}

/// The first page says that it has moved to a secure address, which a GET asks for.
Act MovedToSecure() {
  const std::string moved =
      Joined({kHeader, "302 Found <a href=\"https://moved-to-secure.secure.example/new\">here</a></body>"});
  return Securely(GoodServer(TLS1_3_VERSION), [moved](ServerEnd& server, ServedConnection& client) {
    SecureAnswer(PathOf(server.Request) == "/" ? moved : kPage)(server, client);
  });
}

/// Pages 1 to 3, and the link on the last one. Only the first connection of the secure port is answered.
Behaviour OnceAndNeverAgain() {
  const auto answer = [](std::string_view request) {
    const std::string path = PathOf(request);
    if (path == "/3.htm") return kPage;
    const std::string next = path == "/" ? "1" : path == "/1.htm" ? "2" : "3";
    return Joined({kHeader, "<a href=\"/", next, ".htm\">next</a>"});
  };
  const auto first = std::make_shared<std::atomic<bool>>(true);
  const Act once = Securely(GoodServer(TLS1_3_VERSION), [=](ServerEnd& server, ServedConnection& client) {
    SecureAnswer(answer(server.Request))(server, client);
  });
  Behaviour row = GivenUp("once-and-never-again", [=](ServedConnection& client) {
    if (first->exchange(false)) once(client);
  });
  row.Act = [=](ServedConnection& client) { client.Send(answer(client.ReadRequest())); };
  row.Secure->Connections = 3;  // the second failure is remembered
  row.Secure->PlainConnections = 3;
  return row;
}

/// Honest, but slower than the attempt may take.
void DripHandshake(ServedConnection& client) {
  ServerEnd server(GoodServer(TLS1_3_VERSION));
  server.Feed(client.ReadSome());
  for (const char byte : server.TakeOutgoing()) {
    if (!client.Send({&byte, 1})) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}

Act HelloForEver(std::string bytes) {
  return [flood = Times(10'000, bytes)](ServedConnection& client) {
    client.ReadSome();
    while (client.Send(flood)) {
    }
  };
}

Act Refuse(const TlsServer& server) { return Securely(server, SecureAnswer(kPage)); }

}  // namespace

std::vector<Behaviour> SecurePages() {
  const auto link = SecureAnswer(kPage);
  const TlsServer& tls12 = GoodServer(TLS1_2_VERSION);
  const TlsServer& asks12 = AskingServer(TLS1_2_VERSION, ClientCertificate::Asked);
  const TlsServer& asks13 = AskingServer(TLS1_3_VERSION, ClientCertificate::Asked);
  return {
      Kept("only-1-2", kFound, Securely(tls12, link)),
      Kept13("only-1-3", kFound, link),
      Kept("asks-for-a-certificate-1-2", kFound, Securely(asks12, link)),
      Kept("asks-for-a-certificate-1-3", kFound, Securely(asks13, link)),
      Kept13("ends-without-farewell", kFound,
             [](ServerEnd& server, ServedConnection&) { server.Send(kPage); }),
      Kept13("ends-without-answer", kNotFound, [](ServerEnd&, ServedConnection&) {}),
      Kept13("ends-with-farewell-only", kNotFound, SecureAnswer("")),
      Kept13("goes-on-after-farewell", kNotFound, AfterFarewell),
      Kept13("500-key-updates-and-tickets", kFound, ManyUpdatesAndTickets),
      Kept13("greatest-record", kFound, GreatestRecord()),
      Kept13("one-byte-records", kFound, OneByteRecords),
      Kept13("one-byte-at-a-time", kFound, DripRecords),
      Kept("second-link-beyond-64-mebibytes", "Direct Link, Missing 001", Securely(tls12, MoreThanIsTaken),
           2),
      Kept("moved-to-secure", kFound, MovedToSecure(), 1, 2),
  };
}

std::vector<Behaviour> BrokenSecurePages() {
  const TlsServer& demands = AskingServer(TLS1_3_VERSION, ClientCertificate::Demanded);
  return {
      Kept("demands-a-certificate-1-3", kTimeout, Refuse(demands)),
      Kept13("silence-after-request", kTimeout,
             [](ServerEnd&, ServedConnection& client) { client.WaitForPeer(); }),
      Kept13("reset-after-request", kTimeout, ThenReset("")),
      Kept13("reset-in-page", kTimeout, ThenReset(kPage)),
      Kept13("stall-in-record", kTimeout, StallInRecord(kPage)),
  };
}

std::vector<Behaviour> FalseSecurePages() {
  return {
      Kept13("key-updates-for-ever", kTimeout, ForEver(AskForAnswers)),
      Kept13("key-updates-at-once", kTimeout, ForEver(ManyUpdatesAtOnce)),
      Kept13("tickets-for-ever", kTimeout, ForEver(SendTicket)),
      Kept13("garbage-after-page", kTimeout, ThenBytes("HTTP/1.1 200 OK\r\n\r\n")),
      Kept13("alert-without-keys", kTimeout, ThenBytes("\x15\x03\x03\0\x02\x02\x28"s)),
      Kept13("alert-in-page", kTimeout, AlertInPage),
      Kept("renegotiates", kTimeout, Securely(GoodServer(TLS1_2_VERSION), Renegotiate)),
  };
}

std::vector<Behaviour> SecurePortsGivenUp() {
  const TlsServer& good = GoodServer(TLS1_3_VERSION);
  const test::CertificateWish old{.Names = {"*.secure.example"}, .EndsInDays = 0};
  const test::CertificateWish early{.Names = {"*.secure.example"}, .BeginsInDays = 1};
  const test::CertificateWish other{.Names = {"other.example"}};
  const test::CertificateWish own{.Names = {"self-signed.secure.example"}};
  return {
      Closed("refused", test::RefusingPort),
      Closed("black-hole", test::BlackHolePort),
      GivenUp("silent", [](ServedConnection& client) { client.WaitForPeer(); }),
      GivenUp("closes-at-once", [](ServedConnection&) {}),
      GivenUp("reset-at-once", [](ServedConnection& client) { client.Reset(); }),
      GivenUp("plain-http", Answer("HTTP/1.1 400 Bad Request\r\n\r\n" + std::string(kLink))),
      GivenUp("plain-http-at-once", [](ServedConnection& client) { client.Send(kPage); }),
      GivenUp("only-1-0", Refuse(ServerWith(TLS1_VERSION, {.Names = {"only-1-0.secure.example"}}))),
      GivenUp("only-1-1", Refuse(ServerWith(TLS1_1_VERSION, {.Names = {"only-1-1.secure.example"}}))),
      GivenUp("demands-a-certificate-1-2", Refuse(AskingServer(TLS1_2_VERSION, ClientCertificate::Demanded))),
      GivenUp("alert", HelloAndStay("\x15\x03\x01\0\x02\x02\x28"s)),
      GivenUp("garbage", HelloAndStay(Times(1000, "\x16\x03\x03\x7F\xFFgarbage"))),
      GivenUp("hello-of-16-mebibytes",
              HelloAndStay("\x16\x03\x03\x40\0\x02\xFF\xFF\xFF\x03\x03"s + std::string(0x4000 - 6, 'x'))),
      GivenUp("stall-in-handshake", StallInHandshake(good, 200)),
      GivenUp("drip-in-handshake", DripHandshake),
      GivenUp("warnings-for-ever", HelloForEver("\x15\x03\x03\0\x02\x01\x5A"s)),
      GivenUp("cipher-changes-for-ever", HelloForEver("\x14\x03\x03\0\x01\x01"s)),
      GivenUp("expired", Refuse(ServerWith(TLS1_3_VERSION, old)), "Certificate has expired"),
      GivenUp("too-early", Refuse(ServerWith(TLS1_2_VERSION, early)), "Certificate is not yet valid"),
      GivenUp("other-host", Refuse(ServerWith(TLS1_3_VERSION, other)), "Certificate is for another host"),
      GivenUp("self-signed", Refuse(ServerWith(TLS1_2_VERSION, own, true)), "Certificate is not trusted"),
      OnceAndNeverAgain(),
  };
}

}  // namespace requite::hostile
