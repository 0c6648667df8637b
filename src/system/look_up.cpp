// SPDX-License-Identifier: MIT
// getaddrinfo in detached threads.
#include "system/look_up.h"

#include <netdb.h>
#include <netinet/in.h>
#include <pthread.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstring>
#include <system_error>
#include <thread>

#include "platform/text.h"

namespace requite {
namespace {

/// No more addresses of a host than this are tried; they fit in one datagram.
constexpr std::size_t kMostAddresses = 32;

SocketAddresses AskSystem(const std::string& host, int flags) {
  addrinfo hints{};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = flags;
  addrinfo* found = nullptr;
  SocketAddresses addresses;
  if (::getaddrinfo(host.c_str(), nullptr, &hints, &found) != 0) return addresses;
  for (const addrinfo* one = found; one != nullptr; one = one->ai_next) {
    SocketAddress address;
    if (one->ai_addrlen > sizeof(address.Storage)) continue;
    std::memcpy(&address.Storage, one->ai_addr, one->ai_addrlen);
    address.Length = one->ai_addrlen;
    addresses.push_back(address);
  }
  ::freeaddrinfo(found);
  return addresses;
}

/// The body of a worker thread. It owns its end of the socket and may outlive every object. The answer is
/// one datagram; nobody may be left to receive it.
void Work(LookUp lookUp, const std::string& host, int answerTo) {
  SocketAddresses addresses = lookUp(host);
  if (addresses.size() > kMostAddresses) addresses.resize(kMostAddresses);
  ::send(answerTo, addresses.data(), addresses.size() * sizeof(SocketAddress), MSG_NOSIGNAL);
  ::close(answerTo);
}

/// Only the main thread takes signals: threads made while this exists start with all of them blocked.
class SignalsBlocked {
 public:
  SignalsBlocked() {
    sigset_t all;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~SignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  SignalsBlocked(const SignalsBlocked&) = delete;
  SignalsBlocked& operator=(const SignalsBlocked&) = delete;

 private:
  sigset_t before_{};
};

}  // namespace

void SocketAddress::SetPort(std::uint16_t port) {
  if (Storage.ss_family == AF_INET) reinterpret_cast<sockaddr_in&>(Storage).sin_port = htons(port);
  if (Storage.ss_family == AF_INET6) reinterpret_cast<sockaddr_in6&>(Storage).sin6_port = htons(port);
}

SocketAddresses SystemLookUp(const std::string& host) { return AskSystem(host, 0); }

SocketAddresses NumericAddress(const std::string& host) { return AskSystem(host, AI_NUMERICHOST); }

int StartLookUp(LookUp lookUp, const std::string& host) {
  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return -1;
  try {
    const SignalsBlocked blocked;
    std::thread(Work, lookUp, host, ends[1]).detach();
    return ends[0];
  } catch (const std::system_error&) {
    ::close(ends[0]);
    ::close(ends[1]);
    return -1;
  }
}

SocketAddresses TakeAnswer(int descriptor) {
  SocketAddresses addresses(kMostAddresses);
  const ssize_t bytes =
      ::recv(descriptor, addresses.data(), kMostAddresses * sizeof(SocketAddress), MSG_DONTWAIT);
  addresses.resize(bytes > 0 ? static_cast<std::size_t>(bytes) / sizeof(SocketAddress) : 0);
  return addresses;
}

std::optional<SocketAddresses> AddressCache::Find(const std::string& host) const {
  const auto found = kept_.find(Lower(host));
  if (found == kept_.end() || std::chrono::steady_clock::now() >= found->second.Until) return std::nullopt;
  return found->second.Addresses;
}

void AddressCache::Keep(const std::string& host, const SocketAddresses& addresses) {
  if (addresses.empty()) return;
  if (kept_.size() >= kMostKept) kept_.clear();
  kept_[Lower(host)] = {addresses, std::chrono::steady_clock::now() + kLifetime};
}

}  // namespace requite
