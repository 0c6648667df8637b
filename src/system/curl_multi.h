// SPDX-License-Identifier: MIT
// libcurl's multi interface on the program's event loop.
#pragma once

#include <functional>
#include <memory>

#include "system/descriptor_loop.h"
#include "system/late_curl.h"

namespace requite {

/// Runs transfers as events. All sockets of the library and its timer are in one epoll descriptor, the only
/// one that the loop has to watch.
class CurlMulti {
 public:
  /// `onDone` is not called from inside the library: it may add and remove transfers and let events run.
  /// The loop must outlive this object, and this object every transfer that was added.
  CurlMulti(DescriptorLoop& loop, std::function<void(CURL*)> onDone);
  ~CurlMulti();
  CurlMulti(const CurlMulti&) = delete;
  CurlMulti& operator=(const CurlMulti&) = delete;

  /// Nothing of the transfer runs before the next event.
  void Add(CURL* transfer) { curl_multi_add_handle(multi_, transfer); }
  void Remove(CURL* transfer) { curl_multi_remove_handle(multi_, transfer); }

 private:
  static int OnSocket(CURL*, curl_socket_t socket, int wanted, void* self, void*);
  static int OnTimer(CURLM*, long milliseconds, void* self);
  void OnReady();

  std::function<void(CURL*)> onDone_;
  int epoll_;
  int timer_;
  CURLM* multi_;
  std::unique_ptr<DescriptorWatch> watch_;
};

}  // namespace requite
