// SPDX-License-Identifier: MIT
// The attempt at a secure connection, and what it hands on once it is open.
#include <sys/timerfd.h>

#include <utility>

#include "system/page_connection.h"

namespace requite {
namespace {

constexpr std::uint16_t kPlainPort = 80;
constexpr std::uint16_t kSecurePort = 443;

itimerspec Once(std::chrono::milliseconds time) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(time);
  return {{0, 0}, {seconds.count(), std::chrono::nanoseconds(time - seconds).count()}};
}

}  // namespace

void PageConnection::BeginSecure() {
  filter_ = std::make_unique<TlsFilter>(secure_->Context(), host_);
  Reach(kSecurePort);
}

/// The time begins with the first address: a slow look-up is not the server's fault.
void PageConnection::StartPatience() {
  const int timer = ::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK);
  const itimerspec once = Once(secure_->Patience());
  ::timerfd_settime(timer, 0, &once, nullptr);
  if (!patience_) patience_.emplace(poller_, [this](short) { UsePlain(TlsFailure::Other); });
  patience_->Open(timer, POLLIN);
}

void PageConnection::SendEncrypted() {
  outgoing_.append(filter_->TakeOutgoing());
  SendRest();
}

/// Tells of everything that the last bytes, or the end of the network, led to. What ends the handshake leaves
/// with the request: the system would hold back a second small packet until the server has acknowledged the
/// first one, for which servers take 40 ms.
void PageConnection::DecryptEvents() {
  const std::uint64_t serial = serial_;
  const std::size_t before = received_.size();
  while (filter_->TakePlain(received_) == TlsFilter::kRecord) {
  }
  const bool opens = state_ == State::Handshaking && filter_->HandshakeIsComplete();
  if (!opens) SendEncrypted();
  const TlsState state = filter_->State();
  const bool hasData = received_.size() > before;
  if (state_ == State::Handshaking) {
    if (state == TlsState::Handshaking) return;
    if (!opens) return UsePlain(filter_->Failure());
    patience_->Close();
    secure_->Worked(host_);
    state_ = State::Established;
    Events->OnConnect();
    if (serial != serial_) return;
    SendEncrypted();
  }
  if (hasData) {
    Events->OnDataArrival(received_.size());
    if (serial != serial_) return;
  }
  if (state == TlsState::Open) return;
  socket_.Close();
  state_ = State::Closed;
  // A failure after the handshake is silence, like a reset of a plain connection.
  if (state == TlsState::Ended) Events->OnClose();
}

/// Only before the handshake is complete: what began as secure never goes on in the open.
void PageConnection::UsePlain(TlsFailure why) {
  // A host without an address refused nothing.
  if (!addresses_.empty()) secure_->Failed(host_, why);
  filter_.reset();
  if (patience_) patience_->Close();
  socket_.Close();
  state_ = State::Closed;
  DropOutgoing();
  TellCertificateFault();
  Reach(kPlainPort);
}

void PageConnection::TellCertificateFault() {
  const std::string_view words = secure_->CertificateFault(host_);
  if (!words.empty()) Events->OnCertificateFault(host_, words);
}

}  // namespace requite
