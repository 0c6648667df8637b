// SPDX-License-Identifier: MIT
// The Linking Sites that a scan without secure connections could not read, and the words for them.
#pragma once

#include <cstddef>
#include <set>
#include <string>

namespace requite {

/// Holds each host once, so never more than the project has Linking Sites.
class HttpsOnlySites {
 public:
  void Clear() { hosts_.clear(); }
  /// Takes the URL of a Linking Site. Sites on one host are one site.
  void Add(const std::string& url);
  [[nodiscard]] bool Empty() const { return hosts_.empty(); }

  /// "7 sites answer over HTTPS only; this scan could not read them."
  [[nodiscard]] std::string Words() const;
  /// The hosts, one a line, each cut to a readable length; instead of more than a screenful "and 12 more".
  [[nodiscard]] std::string Names() const;

 private:
  std::set<std::string> hosts_;
};

}  // namespace requite
