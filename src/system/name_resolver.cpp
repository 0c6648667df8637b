// SPDX-License-Identifier: MIT
// The running workers and the queue of questions.
#include "system/name_resolver.h"

#include <poll.h>

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace requite {

NameResolver::NameResolver(SocketPoller& poller, LookUp lookUp) : poller_(poller), lookUp_(lookUp) {}

NameResolver::~NameResolver() = default;

std::optional<SocketAddresses> NameResolver::Known(const std::string& host) {
  if (std::optional<SocketAddresses> found = cache_.Find(host)) return found;
  SocketAddresses numeric = NumericAddress(host);
  if (numeric.empty()) return std::nullopt;
  cache_.Keep(host, numeric);
  return numeric;
}

void NameResolver::Ask(const std::string& host, const void* asker, OnAnswer onAnswer) {
  std::erase_if(workers_, [](const auto& worker) { return worker->Socket.Descriptor() < 0; });
  Forget(asker);
  questions_.push_back({host, asker, std::move(onAnswer)});
  StartWorkers();
}

void NameResolver::Forget(const void* asker) {
  const auto forgotten =
      std::erase_if(questions_, [asker](const Question& question) { return question.Asker == asker; });
  if (forgotten > 0) StartWorkers();  // one that waited for this question's worker can start now
}

/// Gives each question a worker, up to the limits.
void NameResolver::StartWorkers() {
  std::unordered_map<std::string_view, bool> hosts;  // whether a worker looks each up
  for (const Question& question : questions_) hosts[question.Host] = false;
  std::size_t wanted = 0;
  std::size_t inAll = 0;
  for (const auto& worker : workers_) {
    if (worker->Socket.Descriptor() < 0) continue;
    ++inAll;
    const auto host = hosts.find(worker->Host);
    if (host == hosts.end()) continue;
    ++wanted;
    host->second = true;
  }
  for (const Question& question : questions_) {
    if (std::exchange(hosts[question.Host], true)) continue;
    if (wanted >= kMostWorkers || inAll >= kMostThreads || !StartWorker(question.Host)) return;
    ++wanted;
    ++inAll;
  }
}

bool NameResolver::StartWorker(const std::string& host) {
  const int answer = StartLookUp(lookUp_, host);
  if (answer < 0) return false;
  auto worker = std::make_unique<Worker>(poller_, host, [this, host](short) { OnWorkerReady(host); });
  worker->Socket.Open(answer, POLLIN);
  workers_.push_back(std::move(worker));
  return true;
}

void NameResolver::OnWorkerReady(const std::string& host) {
  const auto worker = std::find_if(workers_.begin(), workers_.end(), [&](const auto& one) {
    return one->Host == host && one->Socket.Descriptor() >= 0;
  });
  if (worker == workers_.end()) return;
  PolledSocket& socket = (*worker)->Socket;
  const SocketAddresses addresses = TakeAnswer(socket.Descriptor());
  // The worker's entry is removed with the next question, because this is its own handler.
  socket.Close();
  cache_.Keep(host, addresses);
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
