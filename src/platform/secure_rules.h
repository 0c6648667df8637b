// SPDX-License-Identifier: MIT
// What the settings say of secure connections, for whoever makes connections.
#pragma once

#include <chrono>
#include <functional>

namespace requite {

/// Asked at each connection, so that a change of the settings holds from the next page on.
struct SecureRules {
  std::function<bool()> IsOn;
  std::function<std::chrono::milliseconds()> PageTimeout;
};

}  // namespace requite
