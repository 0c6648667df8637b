// SPDX-License-Identifier: MIT
// The address pattern, applied to the characters on both sides of each "@".
#include "harvest/address_ats.h"

#include "harvest/email_characters.h"

namespace requite {

AddressAts::AddressAts(std::string_view text, const AtIndex& index, std::size_t begin)
    : text_(text), index_(index) {
  for (std::size_t place = begin; place < text_.size(); place = index_.After(place)) {
    if (text_[place] == '@') Look(place);
  }
}

void AddressAts::Look(std::size_t at) {
  const auto end = FollowsName(at) ? EndOfMatch(index_.After(at)) : std::nullopt;
  if (end) {
    ends_.insert_or_assign(at, *end);
  } else {
    ends_.erase(at);
  }
}

bool AddressAts::HoldOne(std::string_view left, std::size_t begin) {
  ends_.erase(ends_.begin(), ends_.lower_bound(begin));
  const auto own = !left.empty() && IsOfAddress(left.back()) ? EndOfMatch(begin) : std::nullopt;
  const std::size_t count = ends_.size() + (own ? 1 : 0);
  if (count != 2) return count == 1;
  // The second address has nothing left before its "@" if the first match takes all that is between them.
  const std::size_t end = own ? *own : ends_.begin()->second;
  return end == ends_.rbegin()->first;
}

std::optional<std::size_t> AddressAts::EndOfMatch(std::size_t place) const {
  bool first = true;
  bool afterDot = false;  // the last character is a full stop after which the match can end
  bool found = false;
  bool atEnd = false;  // only letters and digits have come since the last such full stop
  for (; place < text_.size(); place = index_.After(place)) {
    const char c = text_[place];
    if (kCleanedOfRight.Has(c)) continue;
    if (!IsOfAddress(c)) break;
    const bool plain = IsLetterOrDigit(c);
    atEnd = plain && (atEnd || afterDot);
    found = found || atEnd;
    afterDot = c == '.' && !first;
    first = false;
  }
  if (!found) return std::nullopt;
  return atEnd && place < text_.size() && text_[place] == '@' ? place : std::string_view::npos;
}

bool AddressAts::FollowsName(std::size_t at) const {
  do {
    at = index_.Before(at);
  } while (at != std::string_view::npos && kCleanedOfRight.Has(text_[at]));
  return at != std::string_view::npos && IsOfAddress(text_[at]);
}

}  // namespace requite
