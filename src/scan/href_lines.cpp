// SPDX-License-Identifier: MIT
// One pass that has the effect of nine replacements over the whole page.
#include <algorithm>

#include "platform/text.h"
#include "platform/text_search.h"
#include "scan/triage.h"

namespace requite {
namespace {

constexpr std::string_view kHref = "href=";
constexpr std::string_view kHrefOnLine = "\r\nhref=";

/// Blanks after "href=" are removed in runs of 8, 7, 6 and so on down to 1, once each: at most 36.
constexpr std::size_t kMostBlanks = 36;

/// How many of the blanks at the start of a text are removed.
std::size_t BlanksTaken(std::string_view text) {
  text = text.substr(0, kMostBlanks);
  const std::size_t blanks = std::min(text.find_first_not_of(' '), text.size());
  std::size_t left = blanks;
  for (std::size_t run = 8; run >= 1; --run) {
    if (left >= run) left -= run;
  }
  return blanks - left;
}

/// How much to reserve for the result. A large page gets all that it may need: growing would copy it, and
/// unused memory of that size is never touched.
std::size_t RoomFor(std::size_t size, const Slices& slices) {
  const std::size_t growth = kHrefOnLine.size() - kHref.size();
  const std::size_t most = size + size / kHref.size() * growth;
  return (size > slices.Bytes ? most : size + size / 16 + 16) + kLineEnd.size();
}

}  // namespace

std::optional<std::string> PutHrefsOnLines(std::string_view body, const Slices& slices) {
  const TextFinder finder(kHref);
  std::string text;
  text.reserve(RoomFor(body.size(), slices));
  std::size_t copied = 0;
  for (std::size_t slice = slices.Bytes;; slice += slices.Bytes) {
    // An "href=" that begins in the last four bytes of the window is found with the next one.
    const std::string_view window = body.substr(0, slice);
    for (std::size_t at = finder.Find(window, copied); at != std::string_view::npos;
         at = finder.Find(window, copied)) {
      text.append(body, copied, at - copied).append(kHrefOnLine);
      copied = at + kHref.size();
      copied += BlanksTaken(body.substr(copied));
    }
    if (window.size() == body.size()) break;
    const std::size_t searched = window.size() - std::min(window.size(), kHref.size() - 1);
    if (searched > copied) {
      text.append(body, copied, searched - copied);
      copied = searched;
    }
    if (!slices.GoOn()) return std::nullopt;
  }
  text.append(body, copied);
  return text;
}

}  // namespace requite
