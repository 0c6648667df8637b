// SPDX-License-Identifier: MIT
// Marks are searched for in the whole page, a slice at a time. Lines are short: a search for each mark in
// each line would take longer than everything else.
#include "scan/page_lines.h"

#include <algorithm>

#include "scan/href_value.h"
#include "scan/link_memory.h"

namespace requite {

void PageLines::ReadAhead() {
  current_ = ahead_ = 0;
  do {
    Piece& piece = pieces_[ahead_++];
    piece = {next_, std::min(text_.find('\r', next_), text_.size()), std::nullopt};
    next_ = std::min(piece.End + (text_.substr(piece.End, 2) == "\r\n" ? 2 : 1), text_.size());
    if (!IsHref(LineOf(piece))) continue;
    if (const auto value = PlainHrefValue(LineOf(piece), LinkMemory::kLongest)) piece.Link.emplace(*value);
  } while (ahead_ < pieces_.size() && next_ < text_.size());
}

bool PageLines::SaysMoved() {
  const auto [begin, end, link] = Current();
  return found302_.IsIn(text_, begin, end, slices_) || moved301_.IsIn(text_, begin, end, slices_) ||
         HasMovedTitle();
}

bool PageLines::HasMovedTitle() {
  const std::size_t begin = Current().Begin;
  std::size_t from = begin;
  std::size_t slice = begin + slices_.Bytes;
  for (; titleEnd_.IsIn(text_, from, Current().End, slices_); from = titleEnd_.At() + 1) {
    const std::string_view before = text_.substr(begin, titleEnd_.At() - begin);
    if (EndsWith(before, "<title>Document ", Compare::Text)) return true;
    if (EndsWith(before, "<title>Object ", Compare::Text)) return true;
    if (from < slice) continue;
    if (!slices_.GoOn()) return false;
    slice = from + slices_.Bytes;
  }
  return false;
}

bool PageLines::Mark::IsIn(std::string_view text, std::size_t begin, std::size_t end, const Slices& slices) {
  // A mark has no line end, so a mark that begins on the line also ends there.
  if (at_ != std::string_view::npos && at_ >= begin) return at_ < end;
  at_ = std::string_view::npos;
  searchedTo_ = std::max(searchedTo_, begin);
  while (searchedTo_ < end) {
    const std::size_t overlap = finder_.Pattern().size() - 1;
    at_ = finder_.Find(text.substr(0, searchedTo_ + slices.Bytes + overlap), searchedTo_);
    if (at_ != std::string_view::npos) {
      searchedTo_ = at_ + 1;
      return at_ < end;
    }
    searchedTo_ += slices.Bytes;
    if (searchedTo_ < end && !slices.GoOn()) return false;
  }
  return false;
}

}  // namespace requite
