// SPDX-License-Identifier: MIT
// The servers of a group of behaviours, and the command line of a scan that meets them.
#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <vector>

#include "hostile/behaviour.h"
#include "support/fakes.h"

namespace requite::hostile {

/// One port: what serves it, or a port where nobody does.
class HostilePort {
 public:
  HostilePort(const Act& act, std::uint16_t (*closed)());

  [[nodiscard]] std::uint16_t Number() const { return server_ ? server_->Port() : closed_(); }
  [[nodiscard]] int Connections() const { return connections_; }

 private:
  std::uint16_t (*closed_)();
  std::atomic<int> connections_ = 0;
  std::unique_ptr<test::LocalServer> server_;
};

struct HostileServer {
  explicit HostileServer(const Behaviour& row);

  HostilePort Plain;
  std::unique_ptr<HostilePort> Secure;
};

/// Nothing that a scan of it does leaves this machine.
class HostileWeb {
 public:
  explicit HostileWeb(std::vector<Behaviour> rows);

  /// The arguments that run a script in the program; the project with all rows is loaded.
  [[nodiscard]] std::vector<std::string> Arguments(const std::string& script, int timeout) const;
  [[nodiscard]] const std::vector<Behaviour>& Rows() const { return rows_; }
  [[nodiscard]] const HostileServer& Server(std::size_t row) const { return *servers_[row]; }

 private:
  test::TemporaryFolder folder_;
  std::vector<Behaviour> rows_;
  std::vector<std::unique_ptr<HostileServer>> servers_;
};

}  // namespace requite::hostile
