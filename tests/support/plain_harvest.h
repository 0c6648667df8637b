// SPDX-License-Identifier: MIT
// The reading of a line for addresses in its plain wording: every text grows a character at a time, and each
// removal goes through the whole rest.
#pragma once

#include <string>
#include <vector>

#include "platform/text.h"

namespace requite::test {

inline bool HasStop(const std::string& text) {
  return text.find_first_of("\": ><[]()?=,&*/;") != std::string::npos;
}

inline std::string PlainClean(std::string text, const std::vector<std::string>& pieces) {
  for (const std::string& piece : pieces) text = Replace(text, piece, "", Compare::Binary);
  return text;
}

/// Each candidate of the line in order: left half, "@", right half. Those without a full stop on the right,
/// which are no addresses, are left out.
inline std::vector<std::string> PlainCandidates(std::string tail) {
  const std::vector<std::string> ofLeft = {":", "\"", " ", "<", ">", "[",  "]",  "(",    ")",
                                           "?", "=",  "*", "/", "-", "\r", "\n", "\r\n", ";"};
  std::vector<std::string> ofRight = ofLeft;
  ofRight.insert(ofRight.begin() + 11, ",");
  tail = Replace(tail, "%40", "@", Compare::Binary);
  tail = Replace(tail, "%20", " ", Compare::Binary);
  tail = Replace(tail, "&lt;", "<", Compare::Binary);
  tail = Replace(tail, "&rt;", ">", Compare::Binary);
  std::vector<std::string> candidates;
  while (tail.find('@') != std::string::npos) {
    std::size_t p = tail.find('@') + 1;
    std::string x = tail.substr(0, p > 40 ? p - 40 : p);
    tail = Replace(tail, x, "", Compare::Binary);
    p = tail.find('@') == std::string::npos ? 0 : tail.find('@') + 1;
    x = tail.substr(0, p);
    tail = Replace(tail, x, "", Compare::Binary);

    std::string left;
    const auto l = static_cast<int>(x.size());
    int q = l - 1;
    while (!HasStop(left) && q >= 2) {
      --q;
      left = x.substr(static_cast<std::size_t>(q) - 1, static_cast<std::size_t>(l - q));
    }
    std::string right;
    std::size_t n = 2;
    while (!HasStop(right) && n <= tail.size()) {
      ++n;
      right = tail.substr(0, n - 1);
    }
    if (right.find('.') != std::string::npos) {
      candidates.push_back(PlainClean(left, ofLeft) + "@" + PlainClean(right, ofRight));
    }
    if (n <= tail.size()) tail = tail.substr(n);
  }
  return candidates;
}

}  // namespace requite::test
