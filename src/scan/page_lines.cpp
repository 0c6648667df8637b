// SPDX-License-Identifier: MIT
// Marks are searched in the whole page and then told to be on a line or not: lines are short, and a
// search of its own for each mark on each line would cost more than all the rest.
#include "scan/page_lines.h"

#include <algorithm>

namespace requite {

void PageLines::Advance() {
  begin_ = next_;
  end_ = std::min(text_.find('\r', begin_), text_.size());
  next_ = std::min(end_ + (text_.substr(end_, 2) == "\r\n" ? 2 : 1), text_.size());
}

bool PageLines::SaysMoved() {
  return found302_.IsIn(text_, begin_, end_) || moved301_.IsIn(text_, begin_, end_) || HasMovedTitle();
}

bool PageLines::HasMovedTitle() {
  for (; titleEnd_.IsIn(text_, begin_, end_); titleEnd_.SearchOn(text_)) {
    const std::string_view before = text_.substr(begin_, titleEnd_.At - begin_);
    if (EndsWith(before, "<title>Document ", Compare::Text)) return true;
    if (EndsWith(before, "<title>Object ", Compare::Text)) return true;
  }
  return false;
}

bool PageLines::HasHref() {
  if (origin_ == PageText::Prepared) return Line().starts_with("href=");
  return href_.IsIn(text_, begin_, end_);
}

std::string_view PageLines::FromHref() const {
  const std::size_t at = origin_ == PageText::Prepared ? begin_ : href_.At;
  return text_.substr(at, end_ - at);
}

bool PageLines::Mark::IsIn(std::string_view text, std::size_t begin, std::size_t end) {
  if (!Searched || At < begin) At = Finder.Find(text, begin);
  Searched = true;
  // No mark holds a line end, so one that begins on the line stands there whole.
  return At < end;
}

}  // namespace requite
