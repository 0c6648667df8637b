// SPDX-License-Identifier: MIT
// A server on loopback for tests: it accepts, reads one request, and does what the test says.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <thread>

namespace requite::test {

/// The server's end of one connection, in the server's own thread.
class ServedConnection {
 public:
  explicit ServedConnection(int descriptor) : descriptor_(descriptor) {}
  ~ServedConnection();
  ServedConnection(const ServedConnection&) = delete;
  ServedConnection& operator=(const ServedConnection&) = delete;

  /// Everything up to the blank line.
  std::string ReadRequest();
  /// What has arrived, at least one byte; empty when the other side has closed.
  std::string ReadSome();
  /// The first piece of the request, which is still there to be read.
  std::string PeekRequest();
  /// False when the other side takes no more.
  bool Send(std::string_view bytes);
  void SendUrgent(char byte);  ///< beside the stream
  void End();                  ///< closes in the normal way
  void EndSending();           ///< closes this direction only
  void Reset();                ///< closes so that the other side gets an error
  void WaitForPeer();          ///< until the other side has closed

 private:
  int descriptor_;
};

/// Serves connections one after the other until it is destroyed.
class LocalServer {
 public:
  using Serve = std::function<void(ServedConnection&)>;

  explicit LocalServer(Serve serve);
  ~LocalServer();
  LocalServer(const LocalServer&) = delete;
  LocalServer& operator=(const LocalServer&) = delete;

  [[nodiscard]] std::uint16_t Port() const { return port_; }

 private:
  void Run();

  Serve serve_;
  std::uint16_t port_ = 0;
  int listener_;  // binding it tells the port
  std::thread thread_;
};

/// A port on loopback that refuses connections.
[[nodiscard]] std::uint16_t RefusingPort();
/// A port on loopback that does not answer.
[[nodiscard]] std::uint16_t BlackHolePort();

}  // namespace requite::test
