// SPDX-License-Identifier: MIT
// Host names to addresses, without ever holding up the event loop or the end of the program.
#pragma once

#include <sys/socket.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "shell/qt/socket_poller.h"

namespace requite {

/// An address of the Internet, of either family, with room for a port.
struct SocketAddress {
  sockaddr_storage Storage{};
  socklen_t Length = 0;

  void SetPort(std::uint16_t port);
};

using SocketAddresses = std::vector<SocketAddress>;

/// Looks names up in worker threads of their own. A worker shares nothing with the program but a
/// socket that carries its answer, so one that hangs in the system's resolver can be left behind.
class NameResolver {
 public:
  /// Empty when the name is unknown. Runs in a worker thread.
  using LookUp = SocketAddresses (*)(const std::string& host);
  using OnAnswer = std::function<void(const SocketAddresses&)>;

  /// Look-ups in progress at once; more wait in line.
  static constexpr std::size_t kMostWorkers = 16;
  /// Found names are kept that long, and no more than this many of them.
  static constexpr std::chrono::seconds kLifetime{60};
  static constexpr std::size_t kMostKept = 256;

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

  /// The system's own resolver.
  static SocketAddresses SystemLookUp(const std::string& host);

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
    PolledSocket Socket;
  };
  struct Kept {
    SocketAddresses Addresses;
    std::chrono::steady_clock::time_point Until;
  };

  void StartWorkers();
  bool StartWorker(const std::string& host);
  void OnWorkerReady(const std::string& host);
  void Keep(const std::string& host, const SocketAddresses& addresses);
  void Answer(const std::string& host, const SocketAddresses& addresses);

  SocketPoller& poller_;
  LookUp lookUp_;
  std::vector<Question> questions_;
  std::vector<std::unique_ptr<Worker>> workers_;
  std::unordered_map<std::string, Kept> kept_;
};

}  // namespace requite
