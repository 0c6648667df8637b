// SPDX-License-Identifier: MIT
// Host names to addresses for page connections, without ever holding up the event loop.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "system/look_up.h"
#include "system/socket_poller.h"

namespace requite {

/// Looks names up, each in a worker thread of its own, and keeps what was found for a while.
class NameResolver {
 public:
  using OnAnswer = std::function<void(const SocketAddresses&)>;

  /// Look-ups in progress at once that somebody waits for; more wait in line.
  static constexpr std::size_t kMostWorkers = 16;
  /// All look-ups in progress. Those whose question was forgotten cannot be ended and may hang for long; they
  /// hold nobody up until there are this many threads.
  static constexpr std::size_t kMostThreads = 256;

  explicit NameResolver(SocketPoller& poller, LookUp lookUp = SystemLookUp);
  ~NameResolver();
  NameResolver(const NameResolver&) = delete;
  NameResolver& operator=(const NameResolver&) = delete;

  /// The addresses of a numeric host or of a name that was found a short while ago; nothing when it
  /// has to be asked for.
  [[nodiscard]] std::optional<SocketAddresses> Known(const std::string& host);

  /// Looks a name up; `onAnswer` hears the addresses (none: unknown) as an event, unless the asker
  /// has forgotten the question before. One question an asker.
  void Ask(const std::string& host, const void* asker, OnAnswer onAnswer);
  void Forget(const void* asker);

 private:
  struct Question {
    std::string Host;
    const void* Asker;
    OnAnswer Answer;
  };
  struct Worker {
    Worker(SocketPoller& poller, std::string host, std::function<void(short)> onReady)
        : Host(std::move(host)), Socket(poller, std::move(onReady)) {}
    std::string Host;
    PolledSocket Socket;  ///< without a descriptor once the answer has come
  };

  [[nodiscard]] bool IsAsked(const std::string& host) const;
  void StartWorkers();
  bool StartWorker(const std::string& host);
  void OnWorkerReady(const std::string& host);
  void Answer(const std::string& host, const SocketAddresses& addresses);

  SocketPoller& poller_;
  LookUp lookUp_;
  std::vector<Question> questions_;
  std::vector<std::unique_ptr<Worker>> workers_;
  AddressCache cache_;
};

}  // namespace requite
