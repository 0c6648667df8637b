// SPDX-License-Identifier: MIT
// Putting hrefs on lines has the effect of nine replacements over the whole page.
#include "scan/page_marks.h"

#include <algorithm>
#include <vector>

namespace requite {
namespace {

constexpr std::string_view kHref = "href=";
constexpr std::string_view kHrefOnLine = "\r\nhref=";

/// Blanks after "href=" are removed in runs of 8, 7, 6 and so on down to 1, once each: at most 36.
constexpr std::size_t kMostBlanks = 36;

/// The numbers of the patterns. Main site and moves are the last ones.
enum Mark : std::size_t { kHrefMark, kProtected, kUnrunScript, k302, k301, kMovedTitle, kMainSite };

std::vector<std::string> PatternsWith(const std::string& mainSite) {
  std::vector<std::string> patterns = {
      std::string(kHref), "You are seeing this text because", "<?php", "302 Found", "301 Moved Permanently",
      "moved</title>"};
  if (!mainSite.empty()) patterns.push_back(mainSite);
  return patterns;
}

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

/// A page while it is read.
class Reading {
 public:
  Reading(std::string_view body, const Slices& slices) : body_(body) {
    page_.Text.reserve(RoomFor(body.size(), slices));
  }

  void Note(std::size_t mark, std::size_t at) {
    switch (mark) {
      case kHrefMark: return PutOnLine(at);
      case kProtected: page_.Protected = true; return;
      case kUnrunScript: page_.UnrunScript = true; return;
      case kMainSite: page_.MainSiteFrom = page_.MainSiteFrom.value_or(at); return;
      default: page_.MayHaveMoved = true;
    }
  }
  void CopyTo(std::size_t end) {
    if (end <= copied_) return;
    page_.Text.append(body_, copied_, end - copied_);
    copied_ = end;
  }
  PreparedPage Take() { return std::move(page_); }

 private:
  void PutOnLine(std::size_t at) {
    CopyTo(at);
    page_.Text.append(kHrefOnLine);
    copied_ = at + kHref.size();
    copied_ += BlanksTaken(body_.substr(copied_));
  }

  std::string_view body_;
  PreparedPage page_;
  std::size_t copied_ = 0;
};

}  // namespace

PageMarks::PageMarks(const std::string& mainSite) : mainSite_(mainSite), finder_(PatternsWith(mainSite)) {}

std::optional<PreparedPage> PageMarks::Prepare(std::string_view body, const Slices& slices) const {
  Reading reading(body, slices);
  for (std::size_t from = 0;; from += slices.Bytes) {
    const std::size_t end = from + std::min(slices.Bytes, body.size() - from);
    finder_.ForEach(body, from, end, [&](std::size_t mark, std::size_t at) { reading.Note(mark, at); });
    reading.CopyTo(end);
    if (end == body.size()) return reading.Take();
    if (!slices.GoOn()) return std::nullopt;
  }
}

}  // namespace requite
