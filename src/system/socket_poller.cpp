// SPDX-License-Identifier: MIT
// The slice loop over poll(), and epoll for the time between slices.
#include "system/socket_poller.h"

#include <poll.h>
#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace requite {
namespace {

/// The longest time for which the poller keeps the thread from the event loop.
constexpr std::chrono::nanoseconds kSlice = std::chrono::milliseconds(4);

/// The bits of poll() and epoll have the same values; the kernel guarantees it.
static_assert(POLLIN == static_cast<int>(EPOLLIN) && POLLOUT == static_cast<int>(EPOLLOUT) &&
              POLLRDHUP == static_cast<int>(EPOLLRDHUP));

}  // namespace

SocketPoller::SocketPoller(DescriptorLoop& loop, const EventGuard& guard)
    : guard_(guard),
      epoll_(::epoll_create1(EPOLL_CLOEXEC)),
      sliceEnd_(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)),
      watch_(loop.Watch(epoll_, [this] { OnReadable(); })) {}

SocketPoller::~SocketPoller() {
  watch_.reset();
  ::close(sliceEnd_);
  ::close(epoll_);
}

void SocketPoller::Add(PolledSocket& socket) {
  socket.index_ = sockets_.size();
  sockets_.push_back(&socket);
}

void SocketPoller::Remove(PolledSocket& socket) {
  if (socket.isChanged_) std::erase(changed_, &socket);
  sockets_[socket.index_] = sockets_.back();
  sockets_[socket.index_]->index_ = socket.index_;
  sockets_.pop_back();
}

void SocketPoller::Changed(PolledSocket& socket) {
  if (!delivering_) return Arm(socket);
  // Within a slice the loop looks at every socket itself; most are closed again before it ends. Only for many
  // it does not.
  if (many_ && !std::exchange(socket.isChanged_, true)) changed_.push_back(&socket);
}

/// What a wait said of the descriptor is not true of the next one.
void SocketPoller::Forget(const PolledSocket& socket) {
  if (writable_ == &socket) writable_ = nullptr;
  for (std::size_t i = handedOut_; i < readyEnd_; ++i) {
    if (ready_[i].data.ptr == &socket) ready_[i].data.ptr = nullptr;
  }
}

/// The end of the slice is noticed at the next wait, and each event after a new connection waits for its
/// server.
void SocketPoller::MarkWritable(PolledSocket& socket) {
  if (delivering_ && !many_) writable_ = &socket;
}

void SocketPoller::Arm(PolledSocket& socket) const {
  if (socket.descriptor_ < 0 || socket.armed_ == socket.wanted_) return;
  epoll_event event{};
  event.events = static_cast<std::uint32_t>(socket.wanted_);
  event.data.ptr = &socket;
  // A socket that waits for nothing leaves the set, or epoll would keep reporting its errors.
  const int change = socket.wanted_ == 0 ? EPOLL_CTL_DEL : socket.armed_ == 0 ? EPOLL_CTL_ADD : EPOLL_CTL_MOD;
  ::epoll_ctl(epoll_, change, socket.descriptor_, &event);
  socket.armed_ = socket.wanted_;
}

void SocketPoller::OnReadable() {
  if (delivering_) {
    // A handler may let events run. What is ready then waits until it has returned; until then the watch
    // must be off, or a nested loop would spin on it.
    watch_->SetOn(false);
    watchIsOff_ = true;
    return;
  }
  delivering_ = true;
  if (many_) {
    DeliverMany();
  } else {
    DeliverSlice();
  }
  delivering_ = false;
  if (std::exchange(watchIsOff_, false)) watch_->SetOn(true);
}

void SocketPoller::DeliverSlice() {
  // One timer for the whole slice: a time-out for each wait would cost more than the rest of the wait.
  const itimerspec slice{{0, 0}, {0, kSlice.count()}};
  ::timerfd_settime(sliceEnd_, 0, &slice, nullptr);
  while (DeliverOne()) {
  }
  for (PolledSocket* socket : sockets_) Arm(*socket);
}

/// Waits for a socket to become ready and runs its handler. False at the end of the slice, and when no
/// socket waits for anything. A handler may open and close any socket, so readiness is asked for again
/// after each.
bool SocketPoller::DeliverOne() {
  if (PolledSocket* const socket = std::exchange(writable_, nullptr)) {
    guard_.Run([socket] { socket->onReady_(POLLOUT); });
    return true;
  }
  polled_.clear();
  bool waiting = false;
  for (const PolledSocket* socket : sockets_) {
    // poll() ignores a negative descriptor.
    polled_.push_back({socket->wanted_ == 0 ? -1 : socket->descriptor_, socket->wanted_, 0});
    waiting = waiting || polled_.back().fd >= 0;
  }
  if (!waiting) return false;
  polled_.push_back({sliceEnd_, POLLIN, 0});
  if (::poll(polled_.data(), polled_.size(), -1) <= 0 || polled_.back().revents != 0) return false;

  for (std::size_t i = 0; i < sockets_.size(); ++i) {
    next_ = (next_ + 1) % sockets_.size();
    if (polled_[next_].revents == 0) continue;
    guard_.Run([this, readiness = polled_[next_].revents] { sockets_[next_]->onReady_(readiness); });
    break;
  }
  return true;
}

void SocketPoller::DeliverMany() {
  const auto end = std::chrono::steady_clock::now() + kSlice;
  while (DeliverReady() && std::chrono::steady_clock::now() < end) {
  }
}

/// Hands out all that one wait returns. False when nothing was ready.
bool SocketPoller::DeliverReady() {
  const int count = ::epoll_wait(epoll_, ready_.data(), static_cast<int>(ready_.size()), 0);
  readyEnd_ = static_cast<std::size_t>(std::max(0, count));
  for (handedOut_ = 0; handedOut_ < readyEnd_;) {
    const epoll_event event = ready_[handedOut_++];
    auto* const socket = static_cast<PolledSocket*>(event.data.ptr);
    if (socket == nullptr) continue;
    guard_.Run([&] { socket->onReady_(static_cast<short>(event.events)); });
  }
  for (PolledSocket* socket : changed_) {
    socket->isChanged_ = false;
    Arm(*socket);
  }
  changed_.clear();
  return count > 0;
}

PolledSocket::PolledSocket(SocketPoller& poller, std::function<void(short)> onReady)
    : poller_(poller), onReady_(std::move(onReady)) {
  poller_.Add(*this);
}

PolledSocket::~PolledSocket() {
  Close();
  poller_.Remove(*this);
}

void PolledSocket::Open(int descriptor, short wanted) {
  Close();
  descriptor_ = descriptor;
  Want(wanted);
}

void PolledSocket::Want(short wanted) {
  if (wanted_ == wanted) return;
  wanted_ = wanted;
  poller_.Changed(*this);
}

void PolledSocket::Close() {
  if (descriptor_ < 0) return;
  poller_.Forget(*this);
  // Closing also removes the descriptor from the epoll set.
  ::close(descriptor_);
  descriptor_ = -1;
  wanted_ = 0;
  armed_ = 0;
}

}  // namespace requite
