// SPDX-License-Identifier: MIT
// Blocking sockets in a thread.
#include "system/local_server.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace requite::test {
namespace {

int BoundSocket(std::uint16_t& port) {
  const int descriptor = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof(address);
  if (::bind(descriptor, reinterpret_cast<sockaddr*>(&address), length) != 0 ||
      ::getsockname(descriptor, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
    throw std::runtime_error("no port on loopback");
  }
  port = ntohs(address.sin_port);
  return descriptor;
}

}  // namespace

ServedConnection::~ServedConnection() { End(); }

std::string ServedConnection::ReadRequest() {
  std::string request;
  std::array<char, 4096> piece{};
  // The end of a request is the end of what a client sends, so only there it is looked for.
  while (!request.ends_with("\r\n\r\n")) {
    const ssize_t bytes = ::recv(descriptor_, piece.data(), piece.size(), 0);
    if (bytes <= 0) break;
    request.append(piece.data(), static_cast<std::size_t>(bytes));
  }
  return request;
}

std::string ServedConnection::ReadSome() {
  std::array<char, 16 * 1024> piece;
  const ssize_t bytes = ::recv(descriptor_, piece.data(), piece.size(), 0);
  return {piece.data(), static_cast<std::size_t>(std::max<ssize_t>(bytes, 0))};
}

std::string ServedConnection::PeekRequest() {
  std::array<char, 4096> piece{};
  const ssize_t bytes = ::recv(descriptor_, piece.data(), piece.size(), MSG_PEEK);
  return {piece.data(), bytes > 0 ? static_cast<std::size_t>(bytes) : 0};
}

bool ServedConnection::Send(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

void ServedConnection::SendUrgent(char byte) { ::send(descriptor_, &byte, 1, MSG_NOSIGNAL | MSG_OOB); }

void ServedConnection::EndSending() { ::shutdown(descriptor_, SHUT_WR); }

void ServedConnection::End() {
  if (descriptor_ >= 0) ::close(descriptor_);
  descriptor_ = -1;
}

void ServedConnection::Reset() {
  const linger atOnce{1, 0};
  ::setsockopt(descriptor_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof(atOnce));
  End();
}

void ServedConnection::WaitForPeer() {
  std::array<char, 4096> piece{};
  while (::recv(descriptor_, piece.data(), piece.size(), 0) > 0) {
  }
}

LocalServer::LocalServer(Serve serve) : serve_(std::move(serve)), listener_(BoundSocket(port_)) {
  ::listen(listener_, 64);
  thread_ = std::thread([this] { Run(); });
}

LocalServer::~LocalServer() {
  ::shutdown(listener_, SHUT_RDWR);
  thread_.join();
  ::close(listener_);
}

void LocalServer::Run() {
  for (;;) {
    const int descriptor = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (descriptor < 0) return;
    ServedConnection connection(descriptor);
    serve_(connection);
  }
}

std::uint16_t RefusingPort() {
  // Bound but never listened to: nobody else can get it in the meantime, and it refuses.
  std::uint16_t port = 0;
  static const int held = BoundSocket(port);
  static const std::uint16_t kept = port;
  static_cast<void>(held);
  return kept;
}

std::uint16_t BlackHolePort() {
  static const std::uint16_t kept = [] {
    std::uint16_t port = 0;
    ::listen(BoundSocket(port), 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    // A queue that is full makes the system drop what comes.
    for (int i = 0; i < 2; ++i) {
      const int filler = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
      ::connect(filler, reinterpret_cast<sockaddr*>(&address), sizeof(address));
    }
    return port;
  }();
  return kept;
}

}  // namespace requite::test
