// SPDX-License-Identifier: MIT
// The poll loop of the sample server.
#include "server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

namespace requite::samples {
namespace {

constexpr std::size_t kLongestRequest = 64 * 1024;

void Check(bool good, const char* what) {
  if (!good) throw std::system_error(errno, std::generic_category(), what);
}

}  // namespace

Descriptor::~Descriptor() {
  if (fd_ >= 0) ::close(fd_);
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  std::swap(fd_, other.fd_);
  return *this;
}

Server::Server(Sites sites, std::uint16_t port)
    : sites_(std::move(sites)),
      listener_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)),
      port_(port) {
  Check(listener_.Number() >= 0, "socket");
  const int yes = 1;
  ::setsockopt(listener_.Number(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  Check(::bind(listener_.Number(), reinterpret_cast<const sockaddr*>(&address), size) == 0, "bind");
  Check(::listen(listener_.Number(), 128) == 0, "listen");
  Check(::getsockname(listener_.Number(), reinterpret_cast<sockaddr*>(&address), &size) == 0, "getsockname");
  port_ = ntohs(address.sin_port);
}

void Server::Run(int stopFd) {
  std::vector<pollfd> watched;
  for (;;) {
    const Time now = std::chrono::steady_clock::now();
    watched.assign({{stopFd, POLLIN, 0}, {listener_.Number(), POLLIN, 0}});
    for (const Client& client : clients_) watched.push_back(Watch(client, now));
    const int ready = ::poll(watched.data(), watched.size(), MillisecondsToNextPiece(now));
    Check(ready >= 0 || errno == EINTR, "poll");
    if (ready > 0 && watched[0].revents != 0) return;
    for (std::size_t i = 0; i < clients_.size(); ++i) Serve(clients_[i], watched[i + 2].revents);
    std::erase_if(clients_, [](const Client& client) { return client.Gone; });
    if (ready > 0 && watched[1].revents != 0) Accept();
  }
}

void Server::Accept() {
  const int fd = ::accept4(listener_.Number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
  if (fd >= 0) clients_.push_back({Descriptor(fd), {}, {}});
}

void Server::Serve(Client& client, short events) {
  if ((events & (POLLERR | POLLHUP)) != 0) client.Gone = true;
  if (!client.Gone && (events & POLLIN) != 0) Read(client);
  if (!client.Gone && (events & POLLOUT) != 0) Send(client);
}

void Server::Read(Client& client) {
  char bytes[4096];
  const ssize_t count = ::recv(client.Socket.Number(), bytes, sizeof bytes, 0);
  if (count <= 0) {
    client.Gone = count == 0 || errno != EAGAIN;
    return;
  }
  if (client.Answering) return;
  client.Request.append(bytes, static_cast<std::size_t>(count));
  if (client.Request.find("\r\n\r\n") != std::string::npos) {
    client.Response = sites_.Answer(client.Request);
    client.Answering = true;
  } else if (client.Request.size() > kLongestRequest) {
    client.Gone = true;
  }
}

void Server::Send(Client& client) {
  Response& response = client.Response;
  if (client.Sent == response.Bytes.size() && !response.Endless.empty()) {
    response.Bytes.clear();
    while (response.Bytes.size() < response.Piece) response.Bytes += response.Endless;
    client.Sent = 0;
  }
  if (client.Sent == response.Bytes.size()) return Finish(client);
  const std::size_t left = std::min(response.Piece, response.Bytes.size() - client.Sent);
  const ssize_t count =
      ::send(client.Socket.Number(), response.Bytes.data() + client.Sent, left, MSG_NOSIGNAL);
  if (count < 0) {
    client.Gone = errno != EAGAIN;
    return;
  }
  client.Sent += static_cast<std::size_t>(count);
  client.NextPiece = std::chrono::steady_clock::now() + response.Pause;
}

void Server::Finish(Client& client) {
  client.Drained = true;
  switch (client.Response.Ending) {
    case Ending::StayOpen: break;
    case Ending::Close: ::shutdown(client.Socket.Number(), SHUT_WR); break;
    case Ending::Reset: {
      const linger hard{1, 0};
      ::setsockopt(client.Socket.Number(), SOL_SOCKET, SO_LINGER, &hard, sizeof hard);
      client.Gone = true;
      break;
    }
  }
}

pollfd Server::Watch(const Client& client, Time now) const {
  const bool sends = client.Answering && !client.Drained && client.NextPiece <= now;
  return {client.Socket.Number(), static_cast<short>(sends ? POLLIN | POLLOUT : POLLIN), 0};
}

int Server::MillisecondsToNextPiece(Time now) const {
  using std::chrono::milliseconds;
  milliseconds shortest(-1);
  for (const Client& client : clients_) {
    if (!client.Answering || client.Drained || client.NextPiece <= now) continue;
    const auto wait = std::chrono::duration_cast<milliseconds>(client.NextPiece - now) + milliseconds(1);
    if (shortest.count() < 0 || wait < shortest) shortest = wait;
  }
  return static_cast<int>(shortest.count());
}

}  // namespace requite::samples
