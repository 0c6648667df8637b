// SPDX-License-Identifier: MIT
// The poll loop of the sample server.
#include "server.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "secure_channel.h"

namespace requite::samples {
namespace {

// A record of a secure connection must fit: what is left of it in the library wakes nobody.
constexpr std::size_t kMostAtOnce = 16 * 1024;
constexpr std::size_t kLongestRequest = 64 * 1024;
constexpr std::size_t kFirstClient = 3;  // of those watched; before them are the end and the two listeners

}  // namespace

Server::Server(Sites sites, std::uint16_t port)
    : sites_(std::move(sites)), listener_(ListenOn(port)), secureListener_(-1), port_(PortOf(listener_)) {}

std::uint16_t Server::ListenSecurely(SecureSide& secure, std::uint16_t port) {
  secureListener_ = ListenOn(port);
  secure_ = &secure;
  return PortOf(secureListener_);
}

void Server::Run(int stopFd) {
  std::vector<pollfd> watched;
  for (;;) {
    const Time now = std::chrono::steady_clock::now();
    watched.assign(
        {{stopFd, POLLIN, 0}, {listener_.Number(), POLLIN, 0}, {secureListener_.Number(), POLLIN, 0}});
    for (const Client& client : clients_) watched.push_back(Watch(client, now));
    const int ready = ::poll(watched.data(), watched.size(), MillisecondsToNextPiece(now));
    if (ready < 0 && errno != EINTR) throw std::system_error(errno, std::generic_category(), "poll");
    if (ready < 0) continue;
    if (watched[0].revents != 0) return;
    for (std::size_t i = 0; i < clients_.size(); ++i) Serve(clients_[i], watched[kFirstClient + i].revents);
    std::erase_if(clients_, [](const Client& client) { return client.Gone; });
    if (watched[1].revents != 0) Accept(Side::Plain);
    if (watched[2].revents != 0) Accept(Side::Secure);
  }
}

void Server::Accept(Side side) {
  const Descriptor& listener = side == Side::Secure ? secureListener_ : listener_;
  Descriptor socket(::accept4(listener.Number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
  if (socket.Number() < 0) return;
  Client client;
  client.Side = side;
  client.Channel = side == Side::Secure ? secure_->Open(std::move(socket))
                                        : std::make_unique<samples::Channel>(std::move(socket));
  clients_.push_back(std::move(client));
}

void Server::Serve(Client& client, short events) {
  if ((events & (POLLERR | POLLHUP)) != 0) client.Gone = true;
  if (!client.Gone && (events & POLLIN) != 0) Read(client);
  if (!client.Gone && (events & POLLOUT) != 0) Send(client);
}

void Server::Read(Client& client) {
  std::array<char, kMostAtOnce> bytes;
  const std::ptrdiff_t count = client.Channel->Receive(bytes);
  if (count <= 0) {
    client.Gone = count == Channel::kGone;
    return;
  }
  if (client.Answering) return;
  client.Request.append(bytes.data(), static_cast<std::size_t>(count));
  if (client.Request.find("\r\n\r\n") != std::string::npos) {
    client.Response = sites_.Answer(client.Request, client.Side);
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
  const std::ptrdiff_t count =
      client.Channel->Send(std::string_view(response.Bytes).substr(client.Sent, left));
  if (count <= 0) {
    client.Gone = count == Channel::kGone;
    return;
  }
  client.Sent += static_cast<std::size_t>(count);
  client.NextPiece = std::chrono::steady_clock::now() + response.Pause;
}

void Server::Finish(Client& client) {
  client.Drained = true;
  switch (client.Response.Ending) {
    case Ending::StayOpen: break;
    case Ending::Close: client.Channel->EndSending(); break;
    case Ending::Reset:
      client.Channel->ResetAtClose();
      client.Gone = true;
      break;
  }
}

pollfd Server::Watch(const Client& client, Time now) const {
  const bool sends = client.Answering && !client.Drained && client.NextPiece <= now;
  return {client.Channel->Socket(), static_cast<short>(sends ? POLLIN | POLLOUT : POLLIN), 0};
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
