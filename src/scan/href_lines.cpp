// SPDX-License-Identifier: MIT
// One pass in place of nine replacements over the whole page.
#include <algorithm>

#include "platform/text_search.h"
#include "scan/triage.h"

namespace requite {
namespace {

/// Blanks behind "href=" go in runs of 8, 7, 6 and so on down to 1, once each.
std::size_t BlanksLeft(std::size_t blanks) {
  for (std::size_t run = 8; run >= 1; --run) {
    if (blanks >= run) blanks -= run;
  }
  return blanks;
}

}  // namespace

std::string PutHrefsOnLines(std::string_view body) {
  constexpr std::string_view kHref = "href=";
  constexpr std::string_view kHrefOnLine = "\r\nhref=";
  const TextFinder finder(kHref);
  std::string text;
  text.reserve(body.size() + body.size() / 16 + 16);
  std::size_t copied = 0;
  for (std::size_t at = finder.Find(body); at != std::string_view::npos; at = finder.Find(body, copied)) {
    text.append(body, copied, at - copied).append(kHrefOnLine);
    copied = at + kHref.size();
    const std::size_t behind = std::min(body.find_first_not_of(' ', copied), body.size());
    copied = behind - BlanksLeft(behind - copied);
  }
  return text.append(body, copied);
}

}  // namespace requite
