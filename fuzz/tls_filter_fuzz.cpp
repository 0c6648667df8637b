// SPDX-License-Identifier: MIT
// Feeds a client what no honest server sends: any bytes, or a server's whole conversation with changes. The
// random numbers are the same for every client, so a conversation that was recorded at the start fits each of
// them, and a change in it reaches any step of the handshake. Whatever comes, no plain byte may come out that
// the server did not send, and after the end of the network the state must be a final one. An input: the
// conversation (0 none, 1 TLS 1.2, 2 TLS 1.3), the size of the pieces (0 whole), then the bytes themselves or
// changes of three bytes: a place (two bytes) and what is changed in its byte; 0 cuts there.
#define OPENSSL_SUPPRESS_DEPRECATED  // other random numbers would otherwise need a provider of our own

#include <openssl/rand.h>
#include <openssl/ssl.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "support/fakes.h"
#include "system/tls_filter.h"
#include "system/tls_peer.h"

namespace {

using namespace requite;

constexpr std::string_view kPage = "<a href=\"http://site.example/\">a page</a>";
constexpr std::string_view kHost = "site.example";

void Require(bool holds) {
  if (!holds) std::abort();
}

std::uint64_t randomState = 0;

int SameNumbers(unsigned char* into, int count) {
  std::generate_n(into, count, [] {
    randomState = randomState * 6364136223846793005U + 1442695040888963407U;
    return static_cast<unsigned char>(randomState >> 56U);
  });
  return 1;
}

int Ready() { return 1; }

const RAND_METHOD kSameNumbers{nullptr, SameNumbers, nullptr, nullptr, SameNumbers, Ready};

/// The site, its authority, and what the site says to a client.
class Site {
 public:
  Site() {
    WriteFile(folder_.File("authority.pem"), authority_.Pem());
    Require(context_.HasAuthorities());
    Conversations[1] = Record(TLS1_2_VERSION);
    Conversations[2] = Record(TLS1_3_VERSION);
    for (const std::string& conversation : Conversations) {
      Require(conversation.empty() || Replay(conversation, conversation.size()) == kPage);
    }
  }

  /// Feeds a new client in pieces and returns the plain bytes.
  std::string Replay(std::string_view bytes, std::size_t piece) {
    context_.Sessions().Forget(kHost);
    randomState = 0;
    TlsFilter client(context_, kHost);
    client.Write("GET / HTTP/1.1\r\n\r\n");
    std::size_t sent = client.TakeOutgoing().size();
    std::string plain;
    for (std::size_t place = 0; place < bytes.size(); place += piece) {
      client.Feed(bytes.substr(place, piece));
      client.TakePlain(plain);
      sent += client.TakeOutgoing().size();
    }
    client.FeedEnd();
    client.TakePlain(plain);
    Require(client.State() == TlsState::Ended || client.State() == TlsState::Failed);
    Require((client.State() == TlsState::Failed) == (client.Failure() != TlsFailure::None));
    Require(plain.empty() || client.Failure() != TlsFailure::Cut);
    Require(kPage.starts_with(plain));
    Require(sent < 4096 + bytes.size());
    return plain;
  }

  std::array<std::string, 3> Conversations;  ///< by the first byte of an input

 private:
  std::string Record(int version) {
    const test::TlsServer server(version, site_);
    test::ServerEnd end(server);
    context_.Sessions().Forget(kHost);
    randomState = 0;
    TlsFilter client(context_, kHost);
    std::uint64_t clientsState = randomState;
    randomState = 1;
    const auto answer = [&] {
      std::swap(randomState, clientsState);  // the client must not see how many numbers the server takes
      const std::string request = client.TakeOutgoing();
      std::swap(randomState, clientsState);
      end.Feed(request);
      const std::string bytes = end.TakeOutgoing();
      std::swap(randomState, clientsState);
      client.Feed(bytes);
      std::swap(randomState, clientsState);
      return bytes;
    };
    std::string conversation = answer();
    conversation += answer();
    end.Send(kPage.substr(0, 10));
    if (version == TLS1_3_VERSION) SSL_key_update(end.Library(), SSL_KEY_UPDATE_REQUESTED);
    end.Send(kPage.substr(10));
    end.SendClosing();
    return conversation + end.TakeOutgoing();
  }

  const bool same_ = RAND_set_rand_method(&kSameNumbers) == 1;  // before the first key
  test::Certificate authority_ = test::MakeCertificate({.Authority = true, .Subject = "authority"}, nullptr);
  test::Certificate site_ = test::MakeCertificate({.Names = {std::string(kHost)}}, &authority_);
  test::TemporaryFolder folder_;
  TlsContext context_{TlsStore{folder_.File("authority.pem"), ""}};
};

std::string Changed(std::string bytes, std::string_view changes) {
  for (; changes.size() >= 3 && !bytes.empty(); changes.remove_prefix(3)) {
    const auto high = static_cast<unsigned char>(changes[0]);
    const auto low = static_cast<unsigned char>(changes[1]);
    const std::size_t place = (high * 256U + low) % bytes.size();
    if (changes[2] == 0) {
      bytes.resize(place);
    } else {
      bytes[place] = static_cast<char>(bytes[place] ^ changes[2]);
    }
  }
  return bytes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  if (size < 2) return 0;
  static Site site;
  const std::string_view rest(reinterpret_cast<const char*>(data) + 2, size - 2);
  const std::string& conversation = site.Conversations.at(data[0] % site.Conversations.size());
  const std::string bytes = conversation.empty() ? std::string(rest) : Changed(conversation, rest);
  site.Replay(bytes, data[1] == 0 ? bytes.size() + 1 : data[1]);
  return 0;
}
