// SPDX-License-Identifier: MIT
// Reads any bytes as a connection rule. A rule that was read must read back from its full form, and must
// direct the connections that it names to its target.
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/text.h"
#include "system/connect_map.h"

namespace {

using namespace requite;

void Require(bool holds) {
  if (!holds) std::abort();
}

std::string FullForm(const ConnectRule& rule) {
  const std::string port = rule.Port ? std::to_string(*rule.Port) : std::string();
  return "[" + rule.Host + "]:" + port + ":[" + rule.Target.Host + "]:" + std::to_string(rule.Target.Port);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  const auto rule = ReadConnectRule({reinterpret_cast<const char*>(data), size});
  if (!rule) return 0;
  Require(!rule->Target.Host.empty() && rule->Target.Port > 0 && rule->Port != 0);
  const auto again = ReadConnectRule(FullForm(*rule));
  Require(again && again->Host == rule->Host && again->Port == rule->Port &&
          again->Target.Host == rule->Target.Host && again->Target.Port == rule->Target.Port);

  ConnectMap map;
  map.Add(*rule);
  const std::uint16_t port = rule->Port.value_or(80);
  const Endpoint named = map.Target(Lower(rule->Host), port);
  Require(named.Host == rule->Target.Host && named.Port == rule->Target.Port);
  const Endpoint other = map.Target(rule->Host + "x", port);
  Require(rule->Host.empty() ? other.Port == rule->Target.Port : other.Host == rule->Host + "x");
  return 0;
}
