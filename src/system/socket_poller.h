// SPDX-License-Identifier: MIT
// Readiness of the program's own sockets, delivered as events one at a time and never nested.
#pragma once

#include <poll.h>
#include <sys/epoll.h>

#include <array>
#include <functional>
#include <memory>
#include <vector>

#include "system/descriptor_loop.h"
#include "system/event_guard.h"

namespace requite {

class PolledSocket;

/// Watches sockets through one epoll descriptor and one permanent watch of the event loop.
///
/// While sockets become ready in quick succession it waits for them itself, for a slice of a few
/// milliseconds at most: a page from a fast server then costs no turn of the event loop. While a handler
/// runs (it may let events run, and one may open a message box), no other readiness is delivered
/// until it has returned. So handlers never nest, however fast the network is.
class SocketPoller {
 public:
  /// Loop and guard must outlive the poller, and the poller its sockets.
  SocketPoller(DescriptorLoop& loop, const EventGuard& guard);
  ~SocketPoller();
  SocketPoller(const SocketPoller&) = delete;
  SocketPoller& operator=(const SocketPoller&) = delete;

  /// For many sockets at a time: from now on no event costs more the more sockets there are, and everything
  /// that is ready is handed out before the next wait, which is left to the event loop.
  void ServeMany() { many_ = true; }

 private:
  friend class PolledSocket;

  void Add(PolledSocket& socket);
  void Remove(PolledSocket& socket);
  void Changed(PolledSocket& socket);
  void Forget(const PolledSocket& socket);
  void OnReadable();
  void DeliverSlice();
  bool DeliverOne();
  void MarkWritable(PolledSocket& socket);
  void DeliverMany();
  bool DeliverReady();
  void Arm(PolledSocket& socket) const;

  const EventGuard& guard_;
  int epoll_;
  int sliceEnd_;  ///< a timer's descriptor
  std::unique_ptr<DescriptorWatch> watch_;
  bool watchIsOff_ = false;
  std::vector<PolledSocket*> sockets_;
  std::vector<pollfd> polled_;  ///< reused, so that a wait allocates nothing
  std::size_t next_ = 0;
  PolledSocket* writable_ = nullptr;  ///< found so by its owner; it gets the next event of the slice
  bool delivering_ = false;
  bool many_ = false;
  std::vector<PolledSocket*> changed_;   ///< of many: those to be armed before the next wait
  std::array<epoll_event, 64> ready_{};  ///< of many: what the last wait returned
  std::size_t handedOut_ = 0;            ///< of these
  std::size_t readyEnd_ = 0;
};

/// One descriptor that a poller watches.
class PolledSocket {
 public:
  /// `onReady` gets the poll() bits that are set. It must not destroy this object.
  PolledSocket(SocketPoller& poller, std::function<void(short readiness)> onReady);
  ~PolledSocket();
  PolledSocket(const PolledSocket&) = delete;
  PolledSocket& operator=(const PolledSocket&) = delete;

  /// Takes ownership of a descriptor, closes the one before, and waits for the wanted poll() bits.
  void Open(int descriptor, short wanted);
  /// Changes what is waited for; 0 waits for nothing.
  void Want(short wanted);
  /// The owner knows that bytes can be sent. Within a slice this event then comes without asking the system.
  void MarkWritable() { poller_.MarkWritable(*this); }
  /// Closes the descriptor, if there is one.
  void Close();

  /// -1 without a descriptor.
  [[nodiscard]] int Descriptor() const { return descriptor_; }

 private:
  friend class SocketPoller;

  SocketPoller& poller_;
  std::function<void(short)> onReady_;
  int descriptor_ = -1;
  short wanted_ = 0;
  short armed_ = 0;
  bool isChanged_ = false;
  std::size_t index_ = 0;  ///< among the sockets of the poller
};

}  // namespace requite
