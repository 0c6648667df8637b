// SPDX-License-Identifier: MIT
// The import's text work in its plain form: replacements and growing texts. The program's own forms
// must give the same answers.
#pragma once

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "support/plain_links.h"

namespace requite::test {

/// A random text out of given pieces, at most so many.
inline std::string RandomText(std::mt19937& random, const std::vector<std::string>& pieces,
                              std::size_t most) {
  std::string text;
  for (std::size_t left = random() % (most + 1); left > 0; --left) text += pieces[random() % pieces.size()];
  return text;
}

inline std::string PlainStripTags(std::string text) {
  for (;;) {
    const std::size_t close = text.find('>');
    const std::size_t open = text.find('<');
    if (close == std::string::npos || open == std::string::npos || close < open) return text;
    const std::string tag = text.substr(open, close - open + 1);
    text = Replace(text, tag, "", Compare::Binary);
  }
}

inline std::string PlainImportValue(const std::string& line) {
  std::string s = line.substr(Find(line, "href=", Compare::Text));
  s = Replace(s, "href=\"", "href=", Compare::Text);
  s = Replace(s, "href='", "href=", Compare::Text);
  std::size_t length = 1;
  while (Left(s, length).find_first_of("'>\"") == std::string_view::npos && length < line.size() - 1)
    ++length;
  std::string value(Left(s, length));
  value.pop_back();
  return Replace(value, "href=", "", Compare::Text);
}

inline std::string PlainResolveImportLink(const std::string& link, const std::string& base,
                                          const std::string& host, bool secure) {
  const auto climb = [](const std::string& from) {
    return Replace("/" + Replace(from, "..", "", Compare::Binary), "//", "/", Compare::Binary);
  };
  return PlainResolve({base, host, base, climb}, secure, link);
}

inline std::string PlainExtractLinks(const std::string& html, const std::string& base,
                                     const std::string& host, bool secure = false) {
  const std::string file = Replace(html, "href=", "\r\nhref=", Compare::Text) + "\r\n";
  std::string links;
  LineReader lines(file, LineEnds::CarriageReturn);
  while (const auto line = lines.Next()) {
    if (!Contains(*line, "href=", Compare::Text)) continue;
    const std::string value = PlainImportValue(std::string(*line));
    bool dropped = false;
    for (const std::string_view word :
         {"javascript", "mailto", ".mpg", ".js",  ".mpeg", ".swf", ".avi", ".jpg", ".jpeg",
          ".gif",       ".bmp",   ".mov", ".rm",  ".mp3",  ".wav", ".ra",  ".pdf", ".css",
          ".exe",       ".sit",   ".zip", ".msi", ".ppt",  ".doc", ".xls", ".ico", "#"}) {
      dropped = dropped || Holds(value, word);
    }
    if (dropped) continue;
    const std::string link = PlainResolveImportLink(value, base, host, secure);
    if (!Holds(link, base)) links += link + ",";
  }
  return links;
}

}  // namespace requite::test
