// SPDX-License-Identifier: MIT
// The tests of a result line and what is removed from it, in order.
#include "harvest/result_line.h"

#include <algorithm>
#include <array>

#include "platform/schemes.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::array<std::string_view, 12> kSuffixes = {"com", "org", "net", "gov", "Com", "Org",
                                                        "Net", "Gov", "COM", "ORG", "NET", "GOV"};

bool Holds(std::string_view text, std::string_view what) { return Contains(text, what, Compare::Text); }

/// Only the scheme is compared with case. The engines' own pages do not count as results.
bool IsAdmitted(std::string_view line) {
  if (!line.starts_with(kHttp)) return false;
  if (Holds(line, "Yahoo.com") || Holds(line, "google.com") || Holds(line, "yimg")) return false;
  return Holds(line, ".org") || Holds(line, ".net") || Holds(line, ".com");
}

/// The host without its first label, whether or not that is "www": a bare "example.com" becomes "com".
std::string WithoutFirstLabel(std::string_view line) {
  std::string host(line.substr(kHttp.size()));
  std::erase_if(host, [](char c) { return c == '"' || c == ' ' || c == '\''; });
  host = std::string(Before(Before(host, '>'), '/'));
  const std::size_t dot = host.find('.');
  return dot == std::string::npos ? host : host.substr(dot + 1);
}

/// Without a separator between the domains seen, one that occurs inside another or across two is lost.
bool IsRejected(const std::string& domain, std::string_view seenDomains) {
  return domain.find('<') != std::string::npos || Holds(seenDomains, domain) ||
         domain.find('>') != std::string::npos || domain == "ttp:.com" || domain == " ttp:.com" ||
         Holds(domain, "mailto:");
}

}  // namespace

std::optional<std::string> ResultLines::DomainOf(std::string_view line, std::string_view seenDomains) {
  if (!IsAdmitted(line)) return std::nullopt;
  std::string domain = WithoutFirstLabel(line);
  const std::size_t dot = domain.find('.');
  if (dot != std::string::npos) suffix_ = domain.substr(dot + 1);
  if (std::find(kSuffixes.begin(), kSuffixes.end(), suffix_) == kSuffixes.end()) return std::nullopt;
  if (IsRejected(domain, seenDomains)) return std::nullopt;
  return domain;
}

}  // namespace requite
