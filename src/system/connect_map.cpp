// SPDX-License-Identifier: MIT
// Reading and applying connection rules.
#include "system/connect_map.h"

#include <charconv>

#include "platform/text.h"

namespace requite {
namespace {

/// Removes a host and its colon from the front of `rest`; nothing when it is not well formed.
std::optional<std::string> TakeHost(std::string_view& rest) {
  std::string_view host;
  if (rest.starts_with('[')) {
    const std::size_t end = rest.find("]:");
    if (end == std::string_view::npos) return std::nullopt;
    host = rest.substr(1, end - 1);
    rest.remove_prefix(end + 2);
  } else {
    const std::size_t end = rest.find(':');
    if (end == std::string_view::npos) return std::nullopt;
    host = rest.substr(0, end);
    rest.remove_prefix(end + 1);
  }
  return std::string(host);
}

std::optional<std::uint16_t> ReadPort(std::string_view text) {
  std::uint16_t port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  if (error != std::errc{} || end != text.data() + text.size() || port == 0) return std::nullopt;
  return port;
}

bool Matches(const ConnectRule& rule, std::string_view host, std::uint16_t port) {
  return (rule.Host.empty() || Equals(rule.Host, host, Compare::Text)) && rule.Port.value_or(port) == port;
}

}  // namespace

std::optional<ConnectRule> ReadConnectRule(std::string_view text) {
  ConnectRule rule;
  const std::optional<std::string> host = TakeHost(text);
  if (!host) return std::nullopt;
  rule.Host = *host;

  const std::size_t portEnd = text.find(':');
  if (portEnd == std::string_view::npos) return std::nullopt;
  if (portEnd > 0) {
    rule.Port = ReadPort(text.substr(0, portEnd));
    if (!rule.Port) return std::nullopt;
  }
  text.remove_prefix(portEnd + 1);

  const std::optional<std::string> address = TakeHost(text);
  const std::optional<std::uint16_t> port = ReadPort(text);
  if (!address || address->empty() || !port) return std::nullopt;
  rule.Target = {*address, *port};
  return rule;
}

Endpoint ConnectMap::Target(std::string_view host, std::uint16_t port) const {
  for (const ConnectRule& rule : rules_) {
    if (Matches(rule, host, port)) return rule.Target;
  }
  return {std::string(host), port};
}

}  // namespace requite
