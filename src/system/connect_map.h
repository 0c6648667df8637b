// SPDX-License-Identifier: MIT
// Which connections are made to another place than their host and port say.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace requite {

struct Endpoint {
  std::string Host;
  std::uint16_t Port = 0;
};

/// One rule: connections to Host and Port go to Target. An empty Host or no Port matches any.
struct ConnectRule {
  std::string Host;
  std::optional<std::uint16_t> Port;
  Endpoint Target;
};

/// Reads "HOST:PORT:ADDRESS:PORT2". HOST and PORT may be empty; a HOST or ADDRESS with colons
/// needs brackets. Nothing when the text has another form.
[[nodiscard]] std::optional<ConnectRule> ReadConnectRule(std::string_view text);

/// Rules in the order in which they were given; the first that matches wins.
class ConnectMap {
 public:
  void Add(ConnectRule rule) { rules_.push_back(std::move(rule)); }
  [[nodiscard]] const std::vector<ConnectRule>& Rules() const { return rules_; }

  /// Where to connect: the matching rule's target, else host and port themselves. Hosts are
  /// compared without regard to case, before any look-up.
  [[nodiscard]] Endpoint Target(std::string_view host, std::uint16_t port) const;

 private:
  std::vector<ConnectRule> rules_;
};

}  // namespace requite
