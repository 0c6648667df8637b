// SPDX-License-Identifier: MIT
// Worker threads for look-ups, the line before them, and what they found lately.
#include "shell/qt/name_resolver.h"

#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <system_error>
#include <thread>

#include "platform/text.h"

namespace requite {
namespace {

using Clock = std::chrono::steady_clock;

/// More addresses of one host are not tried; this many fit in one datagram.
constexpr std::size_t kMostAddresses = 32;

SocketAddresses AskSystem(const std::string& host, int flags) {
  addrinfo hints{};
  hints.ai_family = AF_UNSPEC;
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = flags;
  addrinfo* found = nullptr;
  SocketAddresses addresses;
  if (::getaddrinfo(host.c_str(), nullptr, &hints, &found) != 0) return addresses;
  for (const addrinfo* one = found; one != nullptr && addresses.size() < kMostAddresses; one = one->ai_next) {
    SocketAddress address;
    if (one->ai_addrlen > sizeof(address.Storage)) continue;
    std::memcpy(&address.Storage, one->ai_addr, one->ai_addrlen);
    address.Length = one->ai_addrlen;
    addresses.push_back(address);
  }
  ::freeaddrinfo(found);
  return addresses;
}

/// The body of a worker thread. It owns its end of the socket and touches nothing else, so it may
/// outlive everybody. One datagram carries the answer; nobody may be there to hear it.
void Work(NameResolver::LookUp lookUp, const std::string& host, int answerTo) {
  SocketAddresses addresses = lookUp(host);
  if (addresses.size() > kMostAddresses) addresses.resize(kMostAddresses);
  ::send(answerTo, addresses.data(), addresses.size() * sizeof(SocketAddress), MSG_NOSIGNAL);
  ::close(answerTo);
}

/// Signals belong to the main thread: a new thread inherits that all of them are blocked.
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

NameResolver::NameResolver(SocketPoller& poller, LookUp lookUp) : poller_(poller), lookUp_(lookUp) {}

NameResolver::~NameResolver() = default;

SocketAddresses NameResolver::SystemLookUp(const std::string& host) { return AskSystem(host, 0); }

std::optional<SocketAddresses> NameResolver::Known(const std::string& host) {
  const auto found = kept_.find(Lower(host));
  if (found != kept_.end() && Clock::now() < found->second.Until) return found->second.Addresses;
  SocketAddresses numeric = AskSystem(host, AI_NUMERICHOST);
  if (numeric.empty()) return std::nullopt;
  Keep(host, numeric);
  return numeric;
}

void NameResolver::Keep(const std::string& host, const SocketAddresses& addresses) {
  // Unknown names are not kept: the network may have come up in the meantime.
  if (addresses.empty()) return;
  if (kept_.size() >= kMostKept) kept_.clear();
  kept_[Lower(host)] = {addresses, Clock::now() + kLifetime};
}

void NameResolver::Ask(const std::string& host, const void* asker, OnAnswer onAnswer) {
  Forget(asker);
  std::erase_if(workers_, [](const auto& worker) { return worker->Socket.Descriptor() < 0; });
  questions_.push_back({host, asker, std::move(onAnswer)});
  StartWorkers();
}

void NameResolver::Forget(const void* asker) {
  std::erase_if(questions_, [asker](const Question& question) { return question.Asker == asker; });
}

/// Sees to it that each question has a worker, as far as workers may be had.
void NameResolver::StartWorkers() {
  for (const Question& question : questions_) {
    std::size_t busy = 0;
    bool asked = false;
    for (const auto& worker : workers_) {
      if (worker->Socket.Descriptor() < 0) continue;
      ++busy;
      asked = asked || worker->Host == question.Host;
    }
    if (asked) continue;
    if (busy >= kMostWorkers || !StartWorker(question.Host)) return;
  }
}

bool NameResolver::StartWorker(const std::string& host) {
  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0, ends.data()) != 0) return false;
  try {
    const SignalsBlocked blocked;
    std::thread(Work, lookUp_, host, ends[1]).detach();
  } catch (const std::system_error&) {
    ::close(ends[0]);
    ::close(ends[1]);
    return false;
  }
  auto worker = std::make_unique<Worker>(poller_, host, [this, host](short) { OnWorkerReady(host); });
  worker->Socket.Open(ends[0], POLLIN);
  workers_.push_back(std::move(worker));
  return true;
}

void NameResolver::OnWorkerReady(const std::string& host) {
  const auto worker = std::find_if(workers_.begin(), workers_.end(), [&](const auto& one) {
    return one->Host == host && one->Socket.Descriptor() >= 0;
  });
  if (worker == workers_.end()) return;
  PolledSocket& socket = (*worker)->Socket;
  SocketAddresses addresses(kMostAddresses);
  const ssize_t bytes =
      ::recv(socket.Descriptor(), addresses.data(), kMostAddresses * sizeof(SocketAddress), MSG_DONTWAIT);
  addresses.resize(bytes > 0 ? static_cast<std::size_t>(bytes) / sizeof(SocketAddress) : 0);
  // The worker's entry goes with the next question: this is its own handler.
  socket.Close();
  Keep(host, addresses);
  Answer(host, addresses);
}

void NameResolver::Answer(const std::string& host, const SocketAddresses& addresses) {
  std::vector<OnAnswer> answers;
  std::erase_if(questions_, [&](Question& question) {
    if (question.Host != host) return false;
    answers.push_back(std::move(question.Answer));
    return true;
  });
  for (const OnAnswer& answer : answers) answer(addresses);
  StartWorkers();
}

}  // namespace requite
