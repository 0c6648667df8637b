// SPDX-License-Identifier: MIT
// A small web server for the sample sites: loopback only, one thread, one request a connection.
#pragma once

#include <poll.h>

#include <chrono>
#include <cstdint>
#include <vector>

#include "response.h"

namespace requite::samples {

/// A file descriptor that is closed with its owner.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept : fd_(other.fd_) { other.fd_ = -1; }
  Descriptor& operator=(Descriptor&& other) noexcept;

  [[nodiscard]] int Number() const { return fd_; }

 private:
  int fd_;
};

class Server {
 public:
  /// Listens on a port of 127.0.0.1; 0 takes any free one. Throws std::system_error.
  Server(Sites sites, std::uint16_t port);

  [[nodiscard]] std::uint16_t Port() const { return port_; }

  /// Serves until `stopFd` can be read.
  void Run(int stopFd);

 private:
  using Time = std::chrono::steady_clock::time_point;

  struct Client {
    Descriptor Socket;
    std::string Request;
    requite::samples::Response Response;
    std::size_t Sent = 0;
    Time NextPiece{};
    bool Answering = false;
    bool Drained = false;  ///< everything is sent; only the client's close is missing
    bool Gone = false;
  };

  void Accept();
  void Serve(Client& client, short events);
  void Read(Client& client);
  void Send(Client& client);
  void Finish(Client& client);
  [[nodiscard]] pollfd Watch(const Client& client, Time now) const;
  [[nodiscard]] int MillisecondsToNextPiece(Time now) const;

  Sites sites_;
  Descriptor listener_;
  std::uint16_t port_;
  std::vector<Client> clients_;
};

}  // namespace requite::samples
