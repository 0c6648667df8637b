// SPDX-License-Identifier: MIT
// Removes text in time that does not grow with the length of the rest.
#include "harvest/email_tail.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "harvest/email_characters.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::size_t kSearchesFirst = 16;  ///< whole lines to search before building tables pays

bool Stays(char c) { return c != 'w' && c != '.' && !kCleanedOfRight.Has(c); }

}  // namespace

LastRuns::LastRuns(std::string_view text) : lastAt_(std::bit_ceil(text.size() + 1)) {
  for (std::size_t at = 0; at + kRun <= text.size(); ++at) {
    lastAt_[SlotOf(text.data() + at)] = static_cast<std::uint32_t>(at);
  }
}

std::size_t LastRuns::SlotOf(const char* run) const {
  std::uint64_t bits = 0;
  std::memcpy(&bits, run, kRun);
  return (bits * 0x9E3779B97F4A7C15U >> 20) & (lastAt_.size() - 1);
}

bool LastRuns::MayStandFrom(std::size_t begin, std::string_view piece) const {
  // If one run is missing, the whole piece is.
  for (std::size_t at = 0; at + kRun <= piece.size(); ++at) {
    if (lastAt_[SlotOf(piece.data() + at)] < begin) return false;
  }
  return true;
}

void EmailTail::Begin(std::string text) {
  text_ = std::move(text);
  begin_ = 0;
  length_ = text_.size();
  staying_ = static_cast<std::size_t>(std::count_if(text_.begin(), text_.end(), Stays));
  at_ = stop_ = {};
  lastDot_ = text_.rfind('.');
  moved_ = false;
  addresses_.reset();
  index_.reset();
  runs_.reset();
}

template <class Test>
std::size_t EmailTail::Find(Mark& mark, Test&& test) {
  if (mark.Place < begin_) mark = {begin_, 0};
  for (; mark.Place < text_.size(); ++mark.Place) {
    if (IsGone(mark.Place)) continue;
    if (test(text_[mark.Place])) break;
    ++mark.Offset;
  }
  return mark.Offset;
}

std::size_t EmailTail::FirstAt() {
  const std::size_t offset = Find(at_, [](char c) { return c == '@'; });
  return at_.Place == text_.size() ? std::string::npos : offset;
}

std::size_t EmailTail::FirstStop() {
  return Find(stop_, [](char c) { return kStops.Has(c); });
}

bool EmailTail::HoldsOneAddress(std::string_view left) {
  if (!addresses_) addresses_.emplace(text_, *index_, begin_);
  return addresses_->HoldOne(left, begin_);
}

bool EmailTail::HasDot() {
  while (lastDot_ != std::string::npos && lastDot_ >= begin_ && IsGone(lastDot_)) {
    lastDot_ = lastDot_ == 0 ? std::string::npos : text_.rfind('.', lastDot_ - 1);
  }
  return lastDot_ != std::string::npos && lastDot_ >= begin_;
}

std::string EmailTail::Front(std::size_t count) const {
  if (!moved_) return text_.substr(begin_, count);
  std::string front;
  front.reserve(std::min(count, length_));
  for (std::size_t place = begin_; front.size() < count && place < text_.size(); place = After(place)) {
    front += text_[place];
  }
  return front;
}

void EmailTail::Forget(std::size_t place) {
  --length_;
  if (Stays(text_[place])) --staying_;
  for (Mark* const mark : {&at_, &stop_}) {
    if (place < mark->Place && mark->Offset > 0) --mark->Offset;
  }
}

std::string EmailTail::TakeFront(std::size_t count) {
  std::string taken = Front(count);
  for (std::size_t left = taken.size(); left > 0; --left) {
    Forget(begin_);
    begin_ = After(begin_);
  }
  return taken;
}

std::string EmailTail::TakeEverywhere(std::size_t count) {
  std::string piece = TakeFront(count);
  if (piece.empty() || length_ == 0) return piece;
  searched_ += length_;
  const bool pays = searched_ > kSearchesFirst * text_.size();
  if (pays && piece.ends_with('@') && piece.size() > 1) {
    TakeOutOfIndex(std::string_view(piece).substr(0, piece.size() - 1));
    while (begin_ < text_.size() && IsGone(begin_)) ++begin_;
  } else if (!pays || MayStandFurtherOn(piece)) {
    TakeOutOfPlainText(piece);
  }
  return piece;
}

void EmailTail::TakeOutOfIndex(std::string_view context) {
  if (!index_) index_.emplace(text_);
  const auto taken = [this](std::size_t place) {
    Forget(place);
    if (addresses_ && text_[place] == '@') addresses_->Forget(place);
    moved_ = true;
  };
  const auto joined = [this](std::size_t at) {
    if (addresses_) addresses_->Look(at);
  };
  index_->TakeOut(begin_, context, taken, joined);
}

bool EmailTail::MayStandFurtherOn(const std::string& piece) {
  // Removals have joined other runs, which the table does not know.
  if (piece.size() < LastRuns::kRun || moved_) return true;
  if (!runs_) runs_.emplace(text_);
  return runs_->MayStandFrom(begin_, piece);
}

void EmailTail::TakeOutOfPlainText(const std::string& piece) {
  if (!moved_) {
    const std::string_view rest = std::string_view(text_).substr(begin_);
    if (!Contains(rest, piece, Compare::Binary)) return;
    return Begin(Replace(rest, piece, "", Compare::Binary));
  }
  const std::string rest = Front(length_);
  Begin(Replace(rest, piece, "", Compare::Binary));
}

}  // namespace requite
