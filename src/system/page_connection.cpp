// SPDX-License-Identifier: MIT
// A raw non-blocking socket that takes no more system calls a page than a blocking one.
#include "system/page_connection.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace requite {
namespace {

/// The most data received at once: enough for most pages.
constexpr std::size_t kPiece = 128 * 1024;
/// Of a secure connection: what is fed at once takes memory until its end.
constexpr std::size_t kSecurePiece = 32 * 1024;

/// A secure server can make the client answer; one that reads no answers is not read either.
constexpr std::size_t kMostUnread = 64 * 1024;

/// An address that does not answer is given up after about seven seconds while the host has
/// another one; the last one may take as long as the page's time-out allows.
constexpr int kSynRetries = 2;

constexpr std::uint16_t kPlainPort = 80;

constexpr short kServerGone = POLLRDHUP | POLLHUP | POLLERR;

}  // namespace

PageConnection::PageConnection(SocketPoller& poller, NameResolver& resolver, const ConnectMap& map,
                               SecureHosts* secure)
    : poller_(poller),
      resolver_(resolver),
      map_(map),
      secure_(secure),
      socket_(poller, [this](short readiness) { OnReady(readiness); }) {}

PageConnection::~PageConnection() { resolver_.Forget(this); }

void PageConnection::Connect(const std::string& host, std::uint16_t port) {
  Close();
  host_ = host;
  if (secure_ == nullptr || port != kPlainPort) return Reach(port);
  if (secure_->AsksFirst(host)) return BeginSecure();
  TellCertificateFault();
  Reach(port);
}

void PageConnection::Reach(std::uint16_t port) {
  const Endpoint target = map_.Target(host_, port);
  if (target.Host.empty() || target.Host.find('\0') != std::string::npos) return;
  port_ = target.Port;
  state_ = State::Resolving;
  if (const auto known = resolver_.Known(target.Host)) {
    UseAddresses(*known);
  } else {
    resolver_.Ask(target.Host, this, [this](const SocketAddresses& found) { UseAddresses(found); });
  }
}

void PageConnection::UseAddresses(const SocketAddresses& addresses) {
  addresses_ = addresses;
  nextAddress_ = 0;
  if (filter_) StartPatience();
  TryNextAddress();
}

/// Starts connecting to the next address that the system accepts; after the last one the
/// connection stays silent.
void PageConnection::TryNextAddress() {
  socket_.Close();
  state_ = State::Closed;
  while (nextAddress_ < addresses_.size()) {
    SocketAddress address = addresses_[nextAddress_++];
    address.SetPort(port_);
    const int descriptor =
        ::socket(address.Storage.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, IPPROTO_TCP);
    if (descriptor < 0) continue;
    if (nextAddress_ < addresses_.size()) {
      ::setsockopt(descriptor, IPPROTO_TCP, TCP_SYNCNT, &kSynRetries, sizeof(kSynRetries));
    }
    const auto* target = reinterpret_cast<const sockaddr*>(&address.Storage);
    const auto connect = [&] { return ::connect(descriptor, target, address.Length) == 0; };
    bool established = connect();
    if (!established && errno != EINPROGRESS) {
      ::close(descriptor);
      continue;
    }
    // A host on the same machine has accepted by now, which costs less to ask here than in a wait. Of a
    // failure the wait tells as before.
    established = established || connect();
    state_ = State::Connecting;
    reset_ = false;
    socket_.Open(descriptor, POLLOUT);
    if (established) socket_.MarkWritable();
    return;
  }
  if (filter_) UsePlain(TlsFailure::Other);
}

void PageConnection::OnReady(short readiness) {
  if (state_ == State::Connecting) {
    OnConnecting(readiness);
    return;
  }
  if ((readiness & POLLOUT) != 0) SendRest();
  if ((readiness & (POLLIN | kServerGone)) != 0) Receive(readiness);
}

void PageConnection::OnConnecting(short readiness) {
  if ((readiness & (POLLERR | POLLHUP)) != 0) {
    TryNextAddress();
    return;
  }
  state_ = filter_ ? State::Handshaking : State::Established;
  WaitForServer();
  if (filter_) {
    SendEncrypted();
  } else {
    Events->OnConnect();
  }
}

/// Passes on what has arrived, piece by piece, and its end. Each handler may close the
/// connection or start another one, which the serial number shows.
void PageConnection::Receive(short readiness) {
  std::array<char, kPiece> piece;
  const std::uint64_t serial = serial_;
  const std::size_t atOnce = filter_ ? kSecurePiece : piece.size();
  while (MayReceive()) {
    const ssize_t bytes = ::recv(socket_.Descriptor(), piece.data(), atOnce, 0);
    if (bytes < 0 && errno == EINTR) continue;
    if (bytes < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) return;
    if (bytes <= 0) return TakeEnd(bytes == 0 && !reset_);
    const std::string_view got(piece.data(), static_cast<std::size_t>(bytes));
    if (filter_) {
      filter_->Feed(got);
      DecryptEvents();
    } else {
      received_.append(got);
      Events->OnDataArrival(received_.size());
    }
    if (serial != serial_ || !HasSocket()) return;
    // A short piece is the last one for now, unless the server is known to have closed. A secure server can
    // send without end what is no data (tickets, new keys): timers must come between its pieces.
    const bool isFull = static_cast<std::size_t>(bytes) == atOnce;
    const bool more = isFull ? filter_ == nullptr : (readiness & kServerGone) != 0;
    if (!more) break;
  }
  WaitForServer();
}

/// A broken connection stays silent; only a close by the server is an event.
void PageConnection::TakeEnd(bool isServersClose) {
  if (filter_ && (isServersClose || state_ == State::Handshaking)) {
    filter_->FeedEnd();
    DecryptEvents();
    return;
  }
  socket_.Close();
  state_ = State::Closed;
  if (isServersClose) Events->OnClose();
}

void PageConnection::SendData(std::string_view bytes) {
  if (state_ != State::Established) return;
  if (filter_) {
    filter_->Write(bytes);
    SendEncrypted();
  } else {
    outgoing_.append(bytes);
    SendRest();
  }
}

/// A failure to send is silent: what the server has sent before can still be received. The system reports
/// a reset only once: after a failed send, the next read looks like a close by the server.
void PageConnection::SendRest() {
  if (outgoing_.empty()) return;
  const std::string_view rest = std::string_view(outgoing_).substr(sent_);
  const ssize_t sent = ::send(socket_.Descriptor(), rest.data(), rest.size(), MSG_NOSIGNAL);
  const bool broken = sent < 0 && errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR;
  if (broken && errno == ECONNRESET) reset_ = true;
  if (sent > 0) sent_ += static_cast<std::size_t>(sent);
  if (broken || sent_ == outgoing_.size()) DropOutgoing();
  WaitForServer();
}

bool PageConnection::MayReceive() const {
  return received_.size() < kMostHeld && !(filter_ && outgoing_.size() - sent_ > kMostUnread);
}

void PageConnection::DropOutgoing() {
  outgoing_.clear();
  sent_ = 0;
}

void PageConnection::WaitForServer() {
  if (!HasSocket()) return;
  short wanted = outgoing_.empty() ? short{0} : short{POLLOUT};
  if (MayReceive()) wanted = static_cast<short>(wanted | POLLIN | POLLRDHUP);
  socket_.Want(wanted);
}

std::string PageConnection::GetData() {
  std::string data = std::exchange(received_, {});
  WaitForServer();
  return data;
}

void PageConnection::Close() {
  ++serial_;
  resolver_.Forget(this);
  socket_.Close();
  state_ = State::Closed;
  DropOutgoing();
  received_.clear();
  filter_.reset();
  if (patience_) patience_->Close();
}

bool PageConnection::HasAuthorities() { return secure_ == nullptr || secure_->Context().HasAuthorities(); }

}  // namespace requite
