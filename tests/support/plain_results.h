// SPDX-License-Identifier: MIT
// The reading of a result page in its plain wording.
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/text.h"

namespace requite::test {

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
