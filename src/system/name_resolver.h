// SPDX-License-Identifier: MIT
// Finds the addresses of hosts for page connections, without ever blocking the event loop.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "system/look_up.h"
#include "system/socket_poller.h"

namespace requite {

/// Looks each name up in its own worker thread and remembers the result for a while.
class NameResolver {
 public:
  using OnAnswer = std::function<void(const SocketAddresses&)>;

  /// Look-ups at once that somebody waits for; further ones are queued.
  static constexpr std::size_t kMostWorkers = 16;
  /// All look-ups at once. Those whose question was forgotten cannot be stopped and may hang for long; they
  /// delay nobody until there are this many threads.
  static constexpr std::size_t kMostThreads = 256;

  explicit NameResolver(SocketPoller& poller, LookUp lookUp = SystemLookUp);
  ~NameResolver();
  NameResolver(const NameResolver&) = delete;
  NameResolver& operator=(const NameResolver&) = delete;

  /// The addresses of a numeric host or of a name that was found recently; nothing when the name has
  /// to be looked up.
  [[nodiscard]] std::optional<SocketAddresses> Known(const std::string& host);

  /// Looks a name up; `onAnswer` gets the addresses (none: unknown) as an event, unless the asker
  /// forgets the question first. Each asker may have one question.
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
