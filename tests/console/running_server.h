// SPDX-License-Identifier: MIT
// The server of the sample sites in a thread of the test.
#pragma once

#include <sys/eventfd.h>

#include <thread>

#include "server.h"

namespace requite::test {

class RunningServer {
 public:
  RunningServer() = default;
  ~RunningServer() {
    ::eventfd_write(stop_.Number(), 1);
    thread_.join();
  }
  RunningServer(const RunningServer&) = delete;
  RunningServer& operator=(const RunningServer&) = delete;

  [[nodiscard]] std::uint16_t Port() const { return server_.Port(); }

 private:
  samples::Server server_{samples::Sites(REQUITE_SAMPLE_SITES), 0};
  samples::Descriptor stop_{::eventfd(0, EFD_CLOEXEC)};
  std::thread thread_{[this] { server_.Run(stop_.Number()); }};
};

}  // namespace requite::test
