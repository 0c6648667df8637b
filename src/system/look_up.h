// SPDX-License-Identifier: MIT
// Looks host names up in worker threads that nobody has to wait for.
#pragma once

#include <sys/socket.h>

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace requite {

/// An IPv4 or IPv6 address with room for a port.
struct SocketAddress {
  sockaddr_storage Storage{};
  socklen_t Length = 0;

  void SetPort(std::uint16_t port);
};

using SocketAddresses = std::vector<SocketAddress>;

/// Empty when the name is unknown. Runs in a worker thread.
using LookUp = SocketAddresses (*)(const std::string& host);

/// The system's own resolver.
[[nodiscard]] SocketAddresses SystemLookUp(const std::string& host);

/// The address of a numeric host; empty for a name.
[[nodiscard]] SocketAddresses NumericAddress(const std::string& host);

/// Starts a look-up in a worker thread. The descriptor becomes readable with the answer, and belongs to
/// the caller, who may close it at any time: the worker shares nothing else with the program, so one that
/// hangs in the system's resolver can be abandoned. -1 when no thread can be started.
[[nodiscard]] int StartLookUp(LookUp lookUp, const std::string& host);

/// Reads the answer from a descriptor that has become readable.
[[nodiscard]] SocketAddresses TakeAnswer(int descriptor);

/// Names that were found recently.
class AddressCache {
 public:
  static constexpr std::chrono::seconds kLifetime{60};
  static constexpr std::size_t kMostKept = 4096;

  [[nodiscard]] std::optional<SocketAddresses> Find(const std::string& host) const;
  /// Unknown names (no addresses) are not kept: the network may come up later.
  void Keep(const std::string& host, const SocketAddresses& addresses);

 private:
  struct Kept {
    SocketAddresses Addresses;
    std::chrono::steady_clock::time_point Until;
  };

  std::unordered_map<std::string, Kept> kept_;  // by lower-case name
};

}  // namespace requite
