// SPDX-License-Identifier: MIT
// Every lane has a page connection and a timer of its own; all share what is remembered of hosts.
#include "runahead/run_ahead_services.h"

#include <netinet/in.h>

#include <utility>

#include "system/page_connection.h"

namespace requite {
namespace {

/// The bytes of the address without its port; empty for none.
std::string Identity(const SocketAddresses& addresses) {
  if (addresses.empty()) return {};
  SocketAddress first = addresses.front();
  first.SetPort(0);
  return {reinterpret_cast<const char*>(&first.Storage), first.Length};
}

}  // namespace

void MappedAddresses::Find(const std::string& host, const void* asker, OnFound onFound) {
  constexpr std::uint16_t kPort = 80;
  const std::string target = map_.Target(host, kPort).Host;
  if (target.empty() || target.find('\0') != std::string::npos) return onFound({});
  if (const auto known = resolver_.Known(target)) return onFound(Identity(*known));
  resolver_.Ask(target, asker,
                [onFound = std::move(onFound)](const SocketAddresses& found) { onFound(Identity(found)); });
}

RunAheadServices::RunAheadServices(Parts parts, Services& services)
    : parts_(parts),
      addresses_(parts.Resolver, parts.Map),
      turn_(parts.Descriptors, [this] { ahead_.TakeTurn(); }),
      ahead_(NeedsOver(services)) {
  parts.Poller.ServeMany();
}

RunAhead::Needs RunAheadServices::NeedsOver(Services& services) {
  const auto line = [this] {
    return Line{std::make_unique<PageConnection>(parts_.Poller, parts_.Resolver, parts_.Map, &parts_.Secure),
                parts_.MakeTimer()};
  };
  return {services,
          line,
          parts_.MakeTimer,
          addresses_,
          {[this](const bool& over) { return parts_.Descriptors.RunUntil(over); },
           [this] { parts_.Descriptors.Wake(); }},
          [this] { turn_.Raise(); }};
}

}  // namespace requite
