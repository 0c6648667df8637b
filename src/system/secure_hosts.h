// SPDX-License-Identifier: MIT
// Which hosts page connections ask over TLS, remembered while the program runs.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/secure_rules.h"
#include "system/tls_context.h"
#include "system/tls_failure.h"

namespace requite {

/// Shared by all page connections. A host is asked at port 443 first; one that does not answer there as it
/// should is asked at port 80 for an hour.
class SecureHosts {
 public:
  using Clock = std::chrono::steady_clock;

  static constexpr std::chrono::hours kRemembered{1};
  static constexpr std::size_t kMostHosts = 10'000;

  /// Without a store it is the system's.
  explicit SecureHosts(SecureRules rules, std::optional<TlsStore> store = std::nullopt);

  /// Whether the next connection to the host's port 80 begins with an attempt at port 443. False while the
  /// setting is off, while there are no authorities to check with, for hosts that TLS has no names for, and
  /// for those remembered as plain.
  [[nodiscard]] bool AsksFirst(const std::string& host, Clock::time_point now = Clock::now());
  /// How long an attempt may take, from the first address to the end of the handshake: half of the page's
  /// time-out, and 3 s at most.
  [[nodiscard]] std::chrono::milliseconds Patience() const;

  /// The handshake with the host is complete.
  void Worked(const std::string& host);
  /// The attempt failed. The host is remembered as plain at once, but only after its second failure in a row
  /// when it has answered over TLS before.
  void Failed(const std::string& host, TlsFailure why, Clock::time_point now = Clock::now());

  /// Why the host's certificate was refused, in words for users, while that makes it a plain one. Empty for
  /// all other hosts.
  [[nodiscard]] std::string_view CertificateFault(const std::string& host) const;

  [[nodiscard]] TlsContext& Context() { return context_; }

 private:
  struct Known {
    bool HasWorked = false;
    int Failures = 0;                   ///< in a row
    TlsFailure Why = TlsFailure::None;  ///< of the last one
    Clock::time_point PlainUntil{};
  };

  Known& Remember(const std::string& host, Clock::time_point now);

  SecureRules rules_;
  TlsContext context_;
  std::unordered_map<std::string, Known> known_;  ///< by the host in lower case
};

}  // namespace requite
