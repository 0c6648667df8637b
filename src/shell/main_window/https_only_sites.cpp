// SPDX-License-Identifier: MIT
// Counts and lists hosts.
#include "shell/main_window/https_only_sites.h"

#include <utility>

#include "model/url_forms.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::size_t kMostNames = 20;
constexpr std::size_t kLongestName = 80;

std::string Shortened(const std::string& host) {
  return host.size() > kLongestName ? host.substr(0, kLongestName) + "..." : host;
}

}  // namespace

void HttpsOnlySites::Add(const std::string& url) {
  std::string host = Lower(url);
  BareHost(host);
  if (!host.empty()) hosts_.insert(std::move(host));
}

std::string HttpsOnlySites::Words() const {
  if (hosts_.size() == 1) return "1 site answers over HTTPS only; this scan could not read it.";
  return std::to_string(hosts_.size()) + " sites answer over HTTPS only; this scan could not read them.";
}

std::string HttpsOnlySites::Names() const {
  std::string names;
  std::size_t shown = 0;
  for (const std::string& host : hosts_) {
    if (shown > 0) names += '\n';
    if (shown == kMostNames) return names + "and " + std::to_string(hosts_.size() - shown) + " more";
    names += Shortened(host);
    ++shown;
  }
  return names;
}

}  // namespace requite
