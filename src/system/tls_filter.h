// SPDX-License-Identifier: MIT
// Turns the bytes of a secure connection into plain ones and back. It owns no descriptor: who uses it sends
// and receives.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "system/tls_context.h"
#include "system/tls_failure.h"

namespace requite {

enum class TlsState {
  Handshaking,
  Open,
  Ended,   ///< by the peer, all plain bytes taken
  Failed,  ///< likewise; Failure says why
};

/// True when the name can be asked for over a secure connection: an IP address, also in brackets, or a name
/// of ASCII letters, digits, "-", "_" and ".".
[[nodiscard]] bool IsTlsHost(std::string_view host);

/// The client's end of one connection. The order of use: TakeOutgoing at once (the first message); on bytes
/// from the network Feed, on their end FeedEnd; then TakePlain until nothing comes, look at State, and send
/// TakeOutgoing, for any of these calls may have made something to send (also the alert of a failure).
///
/// What waits here is never more than what was fed and not yet taken, and one record. So a caller that stops
/// taking must stop feeding. A caller that cannot send must stop too: a server can ask for an answer again
/// and again and read none of them. The memory for what waits is as large as the largest piece fed, and a
/// third more, until the filter is gone.
class TlsFilter {
 public:
  /// The most plain bytes of one record.
  static constexpr std::size_t kRecord = 16 * 1024;

  /// `context` must outlive the filter. A host that IsTlsHost refuses makes a failed filter.
  TlsFilter(TlsContext& context, std::string_view host);
  ~TlsFilter();
  TlsFilter(const TlsFilter&) = delete;
  TlsFilter& operator=(const TlsFilter&) = delete;

  /// Bytes from the network. Dropped when the connection has ended or failed.
  void Feed(std::string_view bytes);
  /// The network has ended. After the handshake that is the peer's end, with or without a closing message:
  /// plain HTTP cannot tell a cut page from a whole one either.
  void FeedEnd();
  /// Encrypts bytes for the peer; in the handshake they are held until it is complete. Dropped when the
  /// connection has ended or failed.
  void Write(std::string_view plain);

  /// Bytes for the network; empty when there are none.
  [[nodiscard]] std::string TakeOutgoing();
  /// Appends at most `most` plain bytes and returns how many. What came before a failure or the end is handed
  /// out first; only the call that returns less than `most` finds them and changes the state.
  std::size_t TakePlain(std::string& into, std::size_t most = kRecord);

  [[nodiscard]] TlsState State() const { return state_; }
  [[nodiscard]] TlsFailure Failure() const { return failure_; }
  /// Stays true when the connection ends or fails later.
  [[nodiscard]] bool HandshakeIsComplete() const { return handshakeIsComplete_; }
  /// True when a kept session made the handshake short.
  [[nodiscard]] bool Resumed() const;

 private:
  [[nodiscard]] bool Over() const { return state_ == TlsState::Ended || state_ == TlsState::Failed; }
  bool Prepare(TlsContext& context);
  bool CheckHost();
  void Handshake();
  void SendWaiting();
  /// What to make of a call that got no further.
  void Pause(int result);
  void Fail(TlsFailure failure);

  TlsContext& context_;
  const std::string host_;  ///< in lower case, without brackets or a last dot
  std::unique_ptr<SSL, TlsFree> connection_;
  TlsState state_ = TlsState::Handshaking;
  TlsFailure failure_ = TlsFailure::None;
  std::string waiting_;  ///< plain bytes that the library does not take yet
  bool handshakeIsComplete_ = false;
  bool networkEnded_ = false;
};

}  // namespace requite
