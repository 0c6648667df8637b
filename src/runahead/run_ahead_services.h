// SPDX-License-Identifier: MIT
// The sockets and timers of a scan of several sites at a time.
#pragma once

#include <functional>
#include <memory>

#include "platform/services.h"
#include "runahead/run_ahead.h"
#include "system/connect_map.h"
#include "system/descriptor_loop.h"
#include "system/loop_event.h"
#include "system/name_resolver.h"
#include "system/secure_hosts.h"
#include "system/socket_poller.h"

namespace requite {

/// Where connections to a host go, as the map and the resolver say.
class MappedAddresses : public HostAddresses {
 public:
  MappedAddresses(NameResolver& resolver, const ConnectMap& map) : resolver_(resolver), map_(map) {}

  void Find(const std::string& host, const void* asker, OnFound onFound) override;
  void Forget(const void* asker) override { resolver_.Forget(asker); }

 private:
  NameResolver& resolver_;
  const ConnectMap& map_;
};

/// Makes a RunAhead over the program's own services. Only made when several sites at a time are asked for.
class RunAheadServices {
 public:
  /// What pages are fetched with. All of it must outlive this object.
  struct Parts {
    std::function<std::unique_ptr<Timer>()> MakeTimer;
    DescriptorLoop& Descriptors;
    SocketPoller& Poller;
    NameResolver& Resolver;
    const ConnectMap& Map;
    SecureHosts& Secure;
  };

  RunAheadServices(Parts parts, Services& services);

  [[nodiscard]] RunAhead& Ahead() { return ahead_; }

 private:
  [[nodiscard]] RunAhead::Needs NeedsOver(Services& services);

  Parts parts_;
  MappedAddresses addresses_;
  LoopEvent turn_;
  RunAhead ahead_;
};

}  // namespace requite
