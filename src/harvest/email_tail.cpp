// SPDX-License-Identifier: MIT
// Taking text away in time that does not grow with what is left, as long as nothing stands there twice.
#include "harvest/email_tail.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/text.h"

namespace requite {
namespace {

constexpr std::size_t kSearchesFirst = 16;  ///< whole lines searched before the tables pay

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

std::uint32_t MarkOf(std::uint64_t hash) { return static_cast<std::uint32_t>(hash >> 32) | 1; }

}  // namespace

bool IsStopCharacter(char c) { return kStops[static_cast<unsigned char>(c)]; }

void AtContexts::Clear() {
  for (Table& table : tables_) table = Table();
}

AtContexts::Entry& AtContexts::EntryOf(Table& table, std::uint64_t hash) {
  const std::uint32_t mark = MarkOf(hash);
  std::size_t slot = hash & (table.size() - 1);
  while (table[slot].Mark != 0 && table[slot].Mark != mark) slot = (slot + 1) & (table.size() - 1);
  return table[slot];
}

void AtContexts::Build(Table& table, std::string_view text, std::size_t length) {
  // No context reaches over the "@" before it.
  const auto forEach = [&](auto act) {
    std::size_t begin = 0;
    for (std::size_t at = text.find('@'); at != std::string_view::npos; at = text.find('@', begin)) {
      if (at - begin >= length) act(at);
      begin = at + 1;
    }
  };
  std::size_t count = 0;
  forEach([&](std::size_t) { ++count; });
  table.assign(std::bit_ceil(2 * count + 1), {});
  forEach([&](std::size_t at) {
    const std::uint64_t hash = HashOf(text.substr(at - length, length));
    EntryOf(table, hash) = {MarkOf(hash), static_cast<std::uint32_t>(at)};
  });
}

bool AtContexts::StandsBehind(std::string_view text, std::size_t at, std::string_view context) {
  const auto longer = std::upper_bound(kLengths.begin(), kLengths.end(), context.size());
  if (longer == kLengths.begin()) return true;
  const std::size_t length = *(longer - 1);
  Table& table = tables_[static_cast<std::size_t>(longer - kLengths.begin()) - 1];
  if (table.empty()) Build(table, text, length);
  const Entry& entry = EntryOf(table, HashOf(Right(context, length)));
  return entry.Mark != 0 && entry.LastAt > at;
}

bool LastRuns::MayStandBehind(std::string_view text, std::size_t begin, std::size_t count) {
  const auto slot = [&](std::size_t at) {
    std::uint64_t run = 0;
    std::memcpy(&run, text.data() + at, kRun);
    return (run * 0x9E3779B97F4A7C15U >> 20) & (lastAt_.size() - 1);
  };
  if (lastAt_.empty()) {
    lastAt_.resize(std::bit_ceil(text.size()));
    for (std::size_t at = 0; at + kRun <= text.size(); ++at) {
      lastAt_[slot(at)] = static_cast<std::uint32_t>(at);
    }
  }
  // One run that does not stand further behind tells that the whole does not.
  for (std::size_t at = begin; at + kRun <= begin + count; ++at) {
    if (lastAt_[slot(at)] == at) return false;
  }
  return true;
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

std::string EmailTail::TakeEverywhere(std::size_t count) {
  std::string piece(Text().substr(0, count));
  const bool mayStandBehind = MayStandBehind(piece);
  TakeFront(count);
  if (!mayStandBehind || !Contains(Text(), piece, Compare::Binary)) return piece;
  text_ = Replace(Text(), piece, "", Compare::Binary);
  begin_ = at_ = stop_ = 0;
  searched_ = 0;
  contexts_.Clear();
  runs_.Clear();
  lastDot_ = text_.rfind('.');
  return piece;
}

/// Looking through the whole rest for each piece would be quadratic on a line of many "@".
bool EmailTail::MayStandBehind(std::string_view piece) {
  if (piece.empty()) return false;
  searched_ += Text().size();
  if (searched_ <= kSearchesFirst * text_.size()) return true;
  if (piece.size() >= LastRuns::kRun && !runs_.MayStandBehind(text_, begin_, piece.size())) return false;
  if (!piece.ends_with('@')) return true;
  return contexts_.StandsBehind(text_, begin_ + piece.size() - 1, piece.substr(0, piece.size() - 1));
}

}  // namespace requite
