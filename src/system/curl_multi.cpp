// SPDX-License-Identifier: MIT
// What the library asks for, translated to epoll and a timer's descriptor, and readiness back.
#include "system/curl_multi.h"

#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <array>
#include <cstdint>

namespace requite {
namespace {

void WatchIn(int epoll, int change, int descriptor, std::uint32_t events) {
  epoll_event event{};
  event.events = events;
  event.data.fd = descriptor;
  if (::epoll_ctl(epoll, change, descriptor, &event) != 0 && change == EPOLL_CTL_MOD) {
    ::epoll_ctl(epoll, EPOLL_CTL_ADD, descriptor, &event);
  }
}

}  // namespace

CurlMulti::CurlMulti(DescriptorLoop& loop, std::function<void(CURL*)> onDone)
    : onDone_(std::move(onDone)),
      epoll_(::epoll_create1(EPOLL_CLOEXEC)),
      timer_(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)) {
  static_cast<void>(curl_global_init(CURL_GLOBAL_DEFAULT));
  multi_ = curl_multi_init();
  curl_multi_setopt(multi_, CURLMOPT_SOCKETFUNCTION, OnSocket);
  curl_multi_setopt(multi_, CURLMOPT_SOCKETDATA, this);
  curl_multi_setopt(multi_, CURLMOPT_TIMERFUNCTION, OnTimer);
  curl_multi_setopt(multi_, CURLMOPT_TIMERDATA, this);
  WatchIn(epoll_, EPOLL_CTL_ADD, timer_, EPOLLIN);
  watch_ = loop.Watch(epoll_, [this] { OnReady(); });
}

CurlMulti::~CurlMulti() {
  curl_multi_cleanup(multi_);
  watch_.reset();
  ::close(timer_);
  ::close(epoll_);
}

int CurlMulti::OnSocket(CURL*, curl_socket_t socket, int wanted, void* self, void*) {
  const int epoll = static_cast<CurlMulti*>(self)->epoll_;
  if (wanted == CURL_POLL_REMOVE) {
    WatchIn(epoll, EPOLL_CTL_DEL, socket, 0);
  } else {
    const std::uint32_t in = (wanted & CURL_POLL_IN) != 0 ? EPOLLIN : 0U;
    const std::uint32_t out = (wanted & CURL_POLL_OUT) != 0 ? EPOLLOUT : 0U;
    WatchIn(epoll, EPOLL_CTL_MOD, socket, in | out);
  }
  return 0;
}

int CurlMulti::OnTimer(CURLM*, long milliseconds, void* self) {
  itimerspec until{};  // all zero: no timer
  if (milliseconds >= 0) {
    until.it_value.tv_sec = milliseconds / 1000;
    until.it_value.tv_nsec = milliseconds % 1000 * 1'000'000 + 1;  // never 0, which would mean no timer
  }
  ::timerfd_settime(static_cast<CurlMulti*>(self)->timer_, 0, &until, nullptr);
  return 0;
}

void CurlMulti::OnReady() {
  std::array<epoll_event, 16> ready;
  const int count = ::epoll_wait(epoll_, ready.data(), static_cast<int>(ready.size()), 0);
  int running = 0;
  for (int i = 0; i < count; ++i) {
    const epoll_event& event = ready.at(static_cast<std::size_t>(i));
    if (event.data.fd == timer_) {
      std::uint64_t ticks = 0;
      static_cast<void>(!::read(timer_, &ticks, sizeof ticks));
      curl_multi_socket_action(multi_, CURL_SOCKET_TIMEOUT, 0, &running);
    } else {
      const int in = (event.events & EPOLLIN) != 0 ? CURL_CSELECT_IN : 0;
      const int out = (event.events & EPOLLOUT) != 0 ? CURL_CSELECT_OUT : 0;
      const int error = (event.events & (EPOLLERR | EPOLLHUP)) != 0 ? CURL_CSELECT_ERR : 0;
      curl_multi_socket_action(multi_, event.data.fd, in | out | error, &running);
    }
  }
  // Messages are taken one at a time: handling one may let events run, which can enter this function again.
  int left = 0;
  while (const CURLMsg* message = curl_multi_info_read(multi_, &left)) {
    if (message->msg == CURLMSG_DONE) onDone_(message->easy_handle);
  }
}

}  // namespace requite
