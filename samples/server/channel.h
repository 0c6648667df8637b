// SPDX-License-Identifier: MIT
// What carries the bytes of one client: a socket, in the open here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

namespace requite::samples {

/// A file descriptor that is closed with its owner.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept;

  [[nodiscard]] int Number() const { return fd_; }

 private:
  int fd_;
};

/// Listens on a port of 127.0.0.1; 0 takes any free one. Throws std::system_error.
[[nodiscard]] Descriptor ListenOn(std::uint16_t port);
/// The port of a listener. Throws std::system_error.
[[nodiscard]] std::uint16_t PortOf(const Descriptor& listener);

class Channel {
 public:
  static constexpr std::ptrdiff_t kGone = -1;  ///< the client has closed, or something failed

  /// The socket does not block.
  explicit Channel(Descriptor socket) : socket_(std::move(socket)) {}
  virtual ~Channel() = default;
  Channel(const Channel&) = delete;
  Channel& operator=(const Channel&) = delete;

  [[nodiscard]] int Socket() const { return socket_.Number(); }

  /// The number of bytes taken; 0 when there are none yet; or kGone.
  [[nodiscard]] virtual std::ptrdiff_t Receive(std::span<char> bytes);
  /// The number of bytes sent; 0 when there is no room yet; or kGone.
  [[nodiscard]] virtual std::ptrdiff_t Send(std::string_view bytes);
  /// Says that no more will be sent.
  virtual void EndSending();
  /// Makes the close of the socket a reset.
  void ResetAtClose();

 private:
  Descriptor socket_;
};

}  // namespace requite::samples
