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
  return std::any_of(moved_.begin(), moved_.end(),
                     [this](Mark& mark) { return mark.IsIn(text_, begin_, end_); });
}

bool PageLines::HasHref() { return href_.IsIn(text_, begin_, end_); }

bool PageLines::Mark::IsIn(std::string_view text, std::size_t begin, std::size_t end) {
  if (!Searched || At < begin) At = Finder.Find(text, begin);
  Searched = true;
  // No mark holds a line end, so one that begins on the line stands there whole.
  return At < end;
}

}  // namespace requite
