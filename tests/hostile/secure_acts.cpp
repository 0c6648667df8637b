// SPDX-License-Identifier: MIT
// Secure servers in memory, carried over the connections of a local server.
#include "hostile/secure_acts.h"

#include <openssl/ssl.h>

#include <list>
#include <utility>

namespace requite::hostile {
namespace {

using test::Certificate;
using test::CertificateWish;

const Certificate& Authority() {
  static const Certificate authority =
      test::MakeCertificate({.Authority = true, .Subject = "authority"}, nullptr);
  return authority;
}

/// Servers live as long as the tests, whose rows refer to them.
const TlsServer& Keep(TlsServer server) {
  static std::list<TlsServer> all;
  return all.emplace_back(std::move(server));
}

const CertificateWish kGood{.Names = {"*.secure.example"}};

}  // namespace

std::string TrustedAuthority() { return Authority().Pem(); }

const TlsServer& ServerWith(int version, const CertificateWish& wish, bool selfSigned) {
  return Keep(TlsServer(version, test::MakeCertificate(wish, selfSigned ? nullptr : &Authority())));
}

const TlsServer& GoodServer(int version) {
  static const TlsServer& old = ServerWith(TLS1_2_VERSION, kGood);
  static const TlsServer& current = ServerWith(TLS1_3_VERSION, kGood);
  return version == TLS1_2_VERSION ? old : current;
}

bool Flush(ServerEnd& server, ServedConnection& client) { return client.Send(server.TakeOutgoing()); }

Act Securely(const TlsServer& server, SecureAct act) {
  return [&server, act = std::move(act)](ServedConnection& client) {
    ServerEnd end(server);
    if (!test::ReadSecureRequest(client, end)) return;
    act(end, client);
    Flush(end, client);
  };
}

SecureAct SecureAnswer(std::string bytes) {
  return [bytes = std::move(bytes)](ServerEnd& server, ServedConnection&) {
    server.Send(bytes);
    server.SendClosing();
  };
}

Act HelloAndStay(std::string bytes) {
  return [bytes = std::move(bytes)](ServedConnection& client) {
    client.ReadSome();
    client.Send(bytes);
    client.WaitForPeer();
  };
}

Act StallInHandshake(const TlsServer& server, std::size_t bytes) {
  return [&server, bytes](ServedConnection& client) {
    ServerEnd end(server);
    end.Feed(client.ReadSome());
    client.Send(end.TakeOutgoing().substr(0, bytes));
    client.WaitForPeer();
  };
}

SecureAct StallInRecord(std::string bytes) {
  return [bytes = std::move(bytes)](ServerEnd& server, ServedConnection& client) {
    server.Send(bytes);
    const std::string all = server.TakeOutgoing();
    client.Send(std::string_view(all).substr(0, all.size() - 10));
    client.WaitForPeer();
  };
}

}  // namespace requite::hostile
