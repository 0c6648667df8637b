// SPDX-License-Identifier: MIT
// A small web server for the sample sites: loopback only, one thread, one request a connection.
#pragma once

#include <poll.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "channel.h"
#include "response.h"

namespace requite::samples {

class SecureSide;

class Server {
 public:
  /// Listens on a port of 127.0.0.1; 0 takes any free one. Throws std::system_error.
  Server(Sites sites, std::uint16_t port);

  [[nodiscard]] std::uint16_t Port() const { return port_; }

  /// Listens for secure clients too, and returns the port, as above. The secure side must outlive the server.
  std::uint16_t ListenSecurely(SecureSide& secure, std::uint16_t port);

  /// Serves until `stopFd` can be read.
  void Run(int stopFd);

 private:
  using Time = std::chrono::steady_clock::time_point;

  struct Client {
    std::unique_ptr<requite::samples::Channel> Channel;
    requite::samples::Side Side = samples::Side::Plain;
    std::string Request;
    requite::samples::Response Response;
    std::size_t Sent = 0;
    Time NextPiece{};
    bool Answering = false;
    bool Drained = false;  ///< everything is sent; only the client's close is missing
    bool Gone = false;
  };

  void Accept(Side side);
  void Serve(Client& client, short events);
  void Read(Client& client);
  void Send(Client& client);
  void Finish(Client& client);
  [[nodiscard]] pollfd Watch(const Client& client, Time now) const;
  [[nodiscard]] int MillisecondsToNextPiece(Time now) const;

  Sites sites_;
  Descriptor listener_;
  Descriptor secureListener_;  ///< none, and never ready, without a secure side
  SecureSide* secure_ = nullptr;
  std::uint16_t port_;
  std::vector<Client> clients_;
};

}  // namespace requite::samples
