// SPDX-License-Identifier: MIT
// Secure servers that are strange or broken. The link that is looked for is on
// the plain port of each: one that is found without need was asked for in the open.
#include <openssl/ssl.h>

#include <chrono>
#include <thread>
#include <utility>

#include "hostile/secure_acts.h"

namespace requite::hostile {
namespace {

using namespace std::string_literals;

constexpr std::size_t kMebibyte = 1024 * 1024;
const std::string kPage = Joined({kHeader, kLink});

std::string SiteOf(const char* name) { return std::string(name) + ".secure.example"; }

/// Once the handshake is complete nothing may reach the plain port.
Behaviour Kept(const char* name, const char* verdict, Act act, int linksExpected = 1) {
  return {name,          verdict,      Page(std::string(kLink)),
          linksExpected, SiteOf(name), SecurePort{.Act = std::move(act)}};
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

/// A server that gets garbage sends a fatal alert under its keys.
void AlertInPage(ServerEnd& server, ServedConnection& client) {
  server.Send(kPage);
  server.Feed("\x17\x03\x03\0\x20"s + std::string(32, 'x'));
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

Act PageOf(const TlsServer& server) { return Securely(server, SecureAnswer(kPage)); }

}  // namespace

std::vector<Behaviour> SecurePages() {
  const TlsServer& tls12 = GoodServer(TLS1_2_VERSION);
  return {
      Kept("only-1-2", kFound, PageOf(tls12)),
      Kept13("ends-without-farewell", kFound,
             [](ServerEnd& server, ServedConnection&) { server.Send(kPage); }),
      Kept13("ends-without-answer", kNotFound, [](ServerEnd&, ServedConnection&) {}),
      Kept13("goes-on-after-farewell", kNotFound, AfterFarewell),
      Kept13("500-key-updates-and-tickets", kFound, ManyUpdatesAndTickets),
      Kept("second-link-beyond-64-mebibytes", "Direct Link, Missing 001", Securely(tls12, MoreThanIsTaken),
           2),
  };
}

std::vector<Behaviour> BrokenSecurePages() {
  return {
      Kept13("silence-after-request", kTimeout,
             [](ServerEnd&, ServedConnection& client) { client.WaitForPeer(); }),
      Kept13("reset-after-request", kTimeout, ThenReset("")),
      Kept13("reset-in-page", kTimeout, ThenReset(kPage)),
      Kept13("stall-in-record", kTimeout, StallInRecord(kPage)),
      Kept13("key-updates-for-ever", kTimeout, ForEver(AskForAnswers)),
      Kept13("key-updates-at-once", kTimeout, ForEver(ManyUpdatesAtOnce)),
      Kept13("tickets-for-ever", kTimeout, ForEver(SendTicket)),
      Kept13("alert-in-page", kTimeout, AlertInPage),
  };
}

std::vector<Behaviour> SecurePortsGivenUp() {
  const test::CertificateWish old{.Names = {"*.secure.example"}, .EndsInDays = 0};
  const test::CertificateWish early{.Names = {"*.secure.example"}, .BeginsInDays = 1};
  const test::CertificateWish other{.Names = {"other.example"}};
  const test::CertificateWish own{.Names = {"self-signed.secure.example"}};
  return {
      Closed("refused", test::RefusingPort),
      Closed("black-hole", test::BlackHolePort),
      GivenUp("silent", [](ServedConnection& client) { client.WaitForPeer(); }),
      GivenUp("closes-at-once", [](ServedConnection&) {}),
      GivenUp("plain-http", Answer("HTTP/1.1 400 Bad Request\r\n\r\n" + std::string(kLink))),
      GivenUp("hello-of-16-mebibytes",
              HelloAndStay("\x16\x03\x03\x40\0\x02\xFF\xFF\xFF\x03\x03"s + std::string(0x4000 - 6, 'x'))),
      GivenUp("drip-in-handshake", DripHandshake),
      GivenUp("warnings-for-ever", HelloForEver("\x15\x03\x03\0\x02\x01\x5A"s)),
      GivenUp("cipher-changes-for-ever", HelloForEver("\x14\x03\x03\0\x01\x01"s)),
      GivenUp("expired", PageOf(ServerWith(TLS1_3_VERSION, old)), "Certificate has expired"),
      GivenUp("too-early", PageOf(ServerWith(TLS1_2_VERSION, early)), "Certificate is not yet valid"),
      GivenUp("other-host", PageOf(ServerWith(TLS1_3_VERSION, other)), "Certificate is for another host"),
      GivenUp("self-signed", PageOf(ServerWith(TLS1_2_VERSION, own, true)), "Certificate is not trusted"),
  };
}

}  // namespace requite::hostile
