// SPDX-License-Identifier: MIT
// Sockets of the sample server.
#include "channel.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace requite::samples {
namespace {

void Check(bool good, const char* what) {
  if (!good) throw std::system_error(errno, std::generic_category(), what);
}

std::ptrdiff_t Moved(ssize_t count) {
  if (count >= 0) return count;
  return errno == EAGAIN ? 0 : Channel::kGone;
}

}  // namespace

Descriptor::~Descriptor() {
  if (fd_ >= 0) ::close(fd_);
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  std::swap(fd_, other.fd_);
  return *this;
}

Descriptor ListenOn(std::uint16_t port) {
  Descriptor listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  Check(listener.Number() >= 0, "socket");
  const int yes = 1;
  ::setsockopt(listener.Number(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  Check(::bind(listener.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0, "bind");
  Check(::listen(listener.Number(), 128) == 0, "listen");
  return listener;
}

std::uint16_t PortOf(const Descriptor& listener) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  Check(::getsockname(listener.Number(), reinterpret_cast<sockaddr*>(&address), &size) == 0, "getsockname");
  return ntohs(address.sin_port);
}

std::ptrdiff_t Channel::Receive(std::span<char> bytes) {
  const ssize_t count = ::recv(Socket(), bytes.data(), bytes.size(), 0);
  return count == 0 ? kGone : Moved(count);
}

std::ptrdiff_t Channel::Send(std::string_view bytes) {
  return Moved(::send(Socket(), bytes.data(), bytes.size(), MSG_NOSIGNAL));
}

void Channel::EndSending() { ::shutdown(Socket(), SHUT_WR); }

void Channel::ResetAtClose() {
  const linger hard{1, 0};
  ::setsockopt(Socket(), SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
}

}  // namespace requite::samples
