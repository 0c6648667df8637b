// SPDX-License-Identifier: MIT
// The memory of hosts is bounded: a project of a hundred thousand sites must not fill the memory.
#include "system/secure_hosts.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"
#include "system/tls_filter.h"

namespace requite {
namespace {

constexpr std::chrono::milliseconds kMostPatience{3000};

}  // namespace

SecureHosts::SecureHosts(SecureRules rules, std::optional<TlsStore> store)
    : rules_(std::move(rules)), context_(std::move(store)) {}

bool SecureHosts::AsksFirst(const std::string& host, Clock::time_point now) {
  if (!rules_.IsOn() || !IsTlsHost(host)) return false;
  const auto known = known_.find(Lower(host));
  const bool isPlain = known != known_.end() && now < known->second.PlainUntil;
  // Last, because it may read a folder of certificates.
  return !isPlain && context_.HasAuthorities();
}

std::chrono::milliseconds SecureHosts::Patience() const {
  return std::clamp(rules_.PageTimeout() / 2, std::chrono::milliseconds(1), kMostPatience);
}

void SecureHosts::Worked(const std::string& host) {
  Known& known = Remember(host, Clock::now());
  known.HasWorked = true;
  known.Failures = 0;
}

void SecureHosts::Failed(const std::string& host, TlsFailure why, Clock::time_point now) {
  Known& known = Remember(host, now);
  ++known.Failures;
  known.Why = why;
  if (!known.HasWorked || known.Failures > 1) known.PlainUntil = now + kRemembered;
}

std::string_view SecureHosts::CertificateFault(const std::string& host) const {
  if (!rules_.IsOn()) return {};
  const auto known = known_.find(Lower(host));
  if (known == known_.end() || known->second.Failures == 0) return {};
  return IsCertificateFault(known->second.Why) ? Words(known->second.Why) : std::string_view();
}

SecureHosts::Known& SecureHosts::Remember(const std::string& host, Clock::time_point now) {
  if (known_.size() >= kMostHosts) {
    std::erase_if(known_, [now](const auto& each) { return each.second.PlainUntil <= now; });
    if (known_.size() >= kMostHosts) known_.clear();  // each is found out again
  }
  return known_[Lower(host)];
}

}  // namespace requite
