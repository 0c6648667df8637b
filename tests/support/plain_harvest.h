// SPDX-License-Identifier: MIT
// The reading of pages for addresses and domains in its plain form: every text grows a character at a
// time, and each removal goes through the whole rest.
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"
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

/// The domains kept of a page, with `seen` as those kept before, which grows.
inline std::vector<std::string> PlainDomains(const std::string& html, std::string& seen) {
  const auto holds = [](const std::string& text, const std::string& what) {
    return Contains(text, what, Compare::Text);
  };
  std::string text;
  for (std::size_t i = 0; i < html.size(); ++i) {
    if (Equals(html.substr(i, 7), "http://", Compare::Text)) text += "\r\n";
    text += html[i];
  }
  text += "\r\n";
  std::vector<std::string> kept;
  std::string suffix;
  LineReader lines(text, LineEnds::CarriageReturn);
  while (!lines.AtEnd()) {
    std::string line(*lines.Next());
    if (line.substr(0, 7) != "http://" || holds(line, "yahoo.com") || holds(line, "google.com")) continue;
    if (holds(line, "yimg") || line.empty()) continue;
    if (!holds(line, ".org") && !holds(line, ".net") && !holds(line, ".com")) continue;
    line.erase(0, 7);
    for (const char* each : {"\"", " ", "'"}) line = Replace(line, each, "", Compare::Binary);
    if (line.find('>') != std::string::npos) line.resize(line.find('>'));
    if (line.find('/') != std::string::npos) line.resize(line.find('/'));
    if (line.find('.') != std::string::npos) line.erase(0, line.find('.') + 1);
    if (line.find('.') != std::string::npos) suffix = line.substr(line.find('.') + 1);
    bool fits = false;
    for (const char* each :
         {"com", "org", "net", "gov", "Com", "Org", "Net", "Gov", "COM", "ORG", "NET", "GOV"}) {
      fits = fits || suffix == each;
    }
    if (!fits || line.find('<') != std::string::npos || holds(seen, line)) continue;
    if (line == "ttp:.com" || line == " ttp:.com" || holds(line, "mailto:")) continue;
    kept.push_back(line);
    seen += line;
  }
  return kept;
}

}  // namespace requite::test
