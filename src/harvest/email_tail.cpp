// SPDX-License-Identifier: MIT
// Taking text away in time that does not grow with what is left, as long as nothing stands there twice.
#include "harvest/email_tail.h"

#include <algorithm>
#include <bit>

#include "platform/text.h"

namespace requite {
namespace {

constexpr std::size_t kLargestTable = std::size_t{1} << 22;
constexpr std::uint8_t kFull = 255;         ///< such a count is not known any more
constexpr std::size_t kSearchesFirst = 16;  ///< whole lines searched before counting pays

constexpr std::array<bool, 256> MakeStops() {
  std::array<bool, 256> stops{};
  for (const char c : std::string_view("\": ><[]()?=,&*/;")) stops[static_cast<unsigned char>(c)] = true;
  return stops;
}
constexpr std::array<bool, 256> kStops = MakeStops();

std::uint64_t HashOf(std::string_view text) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x9E3779B97F4A7C15U;
  return hash ^ hash >> 29;
}

}  // namespace

bool IsStopCharacter(char c) { return kStops[static_cast<unsigned char>(c)]; }

std::size_t AtContexts::SlotOf(std::string_view context, std::size_t table) const {
  return table * tableSize_ + (HashOf(context) & (tableSize_ - 1));
}

/// Acts on the count of each context of an "@"; none reaches beyond the "@" before.
template <class Act>
void AtContexts::ForContexts(std::string_view text, std::size_t at, Act act) {
  const std::size_t before = at == 0 ? std::string_view::npos : text.rfind('@', at - 1);
  const std::size_t length = before == std::string_view::npos ? at : at - before - 1;
  for (std::size_t table = 0; table < kContexts.size() && kContexts[table] <= length; ++table) {
    act(counts_[SlotOf(text.substr(at - kContexts[table], kContexts[table]), table)]);
  }
}

void AtContexts::Build(std::string_view text) {
  const auto ats = static_cast<std::size_t>(std::count(text.begin(), text.end(), '@'));
  tableSize_ = std::min(kLargestTable, std::bit_ceil(4 * ats + 1));
  counts_.assign(kContexts.size() * tableSize_, 0);
  for (std::size_t at = text.find('@'); at != std::string_view::npos; at = text.find('@', at + 1)) {
    ForContexts(text, at, [](std::uint8_t& count) { count += count == kFull ? 0 : 1; });
  }
  built_ = true;
}

void AtContexts::Leave(std::string_view text, std::size_t at) {
  ForContexts(text, at, [](std::uint8_t& count) { count -= count == kFull ? 0 : 1; });
}

bool AtContexts::MayRepeat(std::string_view piece) const {
  const std::string_view context = piece.substr(0, piece.size() - 1);
  const auto longer = std::upper_bound(kContexts.begin(), kContexts.end(), context.size());
  if (longer == kContexts.begin()) return true;
  const auto table = static_cast<std::size_t>(longer - kContexts.begin()) - 1;
  return counts_[SlotOf(Right(context, kContexts[table]), table)] > 1;
}

std::size_t EmailTail::FirstAt() {
  at_ = std::min(text_.find('@', std::max(at_, begin_)), text_.size());
  return at_ == text_.size() ? std::string_view::npos : at_ - begin_;
}

std::size_t EmailTail::FirstStop() {
  const auto from = text_.begin() + static_cast<std::ptrdiff_t>(std::max(stop_, begin_));
  stop_ = static_cast<std::size_t>(std::find_if(from, text_.end(), IsStopCharacter) - text_.begin());
  return stop_ - begin_;
}

void EmailTail::TakeFront(std::size_t count) {
  if (contexts_.Built()) {
    const std::size_t end = begin_ + count;
    for (std::size_t at = text_.find('@', begin_); at < end; at = text_.find('@', at + 1)) {
      contexts_.Leave(text_, at);
    }
  }
  begin_ += count;
}

std::string EmailTail::TakeEverywhere(std::size_t count) {
  const std::string piece(Text().substr(0, count));
  const bool mayRepeat = MayRepeat(piece);
  TakeFront(count);
  if (!mayRepeat || !Contains(Text(), piece, Compare::Binary)) return piece;
  text_ = Replace(Text(), piece, "", Compare::Binary);
  begin_ = at_ = stop_ = 0;
  searched_ = 0;
  contexts_.Clear();
  return piece;
}

/// Looking through the whole rest for each piece would be quadratic on a line of many "@".
bool EmailTail::MayRepeat(std::string_view piece) {
  if (piece.empty() || !piece.ends_with('@')) return !piece.empty();
  if (!contexts_.Built()) {
    searched_ += Text().size();
    if (searched_ <= kSearchesFirst * text_.size()) return true;
    text_.erase(0, begin_);  // what is gone is not to be counted
    begin_ = at_ = stop_ = 0;
    contexts_.Build(text_);
  }
  return contexts_.MayRepeat(piece);
}

}  // namespace requite
