// SPDX-License-Identifier: MIT
// Tables by length of context. A removal gives only the next "@" a longer context.
#include "harvest/at_index.h"

#include <algorithm>
#include <bit>

namespace requite {
namespace {

std::uint32_t HashOf(std::string_view text) {
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x9E3779B97F4A7C15U;
  return static_cast<std::uint32_t>(hash ^ hash >> 32);
}

}  // namespace

AtIndex::AtIndex(std::string_view text) : text_(text), gone_(text.size()), over_(text.size()) {
  for (std::size_t at = text.find('@'); at != std::string_view::npos; at = text.find('@', at + 1)) {
    const auto which = static_cast<std::uint32_t>(ats_.size());
    ats_.push_back({static_cast<std::uint32_t>(at), which == 0 ? kNone : which - 1, which + 1, 0});
  }
  if (!ats_.empty()) ats_.back().Next = kNone;
}

std::size_t AtIndex::After(std::size_t place) const {
  ++place;
  return place < text_.size() && gone_[place] ? over_[place] : place;
}

std::size_t AtIndex::Before(std::size_t place) const {
  if (place == 0) return std::string_view::npos;
  --place;
  if (!gone_[place]) return place;
  return over_[place] == 0 ? std::string_view::npos : over_[place] - 1;
}

/// Joins removed stretches next to it on both sides into one.
void AtIndex::Close(std::size_t first, std::size_t end) {
  if (first > 0 && gone_[first - 1]) first = over_[first - 1];
  if (end < text_.size() && gone_[end]) end = over_[end];
  over_[first] = static_cast<std::uint32_t>(end);
  over_[end - 1] = static_cast<std::uint32_t>(first);
}

void AtIndex::Unlink(std::uint32_t which) {
  const At& at = ats_[which];
  if (at.Previous != kNone) ats_[at.Previous].Next = at.Next;
  if (at.Next != kNone) ats_[at.Next].Previous = at.Previous;
}

void AtIndex::FindMatches(std::size_t begin, std::string_view context) {
  matches_.clear();
  const auto longer = std::upper_bound(kLengths.begin(), kLengths.end(), context.size());
  const auto number = static_cast<std::size_t>(longer - kLengths.begin()) - 1;
  Table& table = tables_[number];
  if (table.Heads.empty()) Build(begin, number);
  const std::uint32_t hash = HashOf(context.substr(context.size() - kLengths[number]));
  std::uint32_t* link = &table.Heads[hash & (table.Heads.size() - 1)];
  while (*link != kNone) {
    Entry& entry = table.Entries[*link];
    const std::size_t place = ats_[entry.Which].Place;
    if (place < begin || gone_[place]) {
      *link = entry.Next;  // removed for good
      continue;
    }
    if (entry.Hash == hash && Matches(begin, entry.Which, context)) matches_.push_back(entry.Which);
    link = &entry.Next;
  }
  std::sort(matches_.begin(), matches_.end());
}

bool AtIndex::Matches(std::size_t begin, std::uint32_t which, std::string_view context) const {
  std::size_t place = ats_[which].Place;
  for (std::size_t left = context.size(); left > 0; --left) {
    place = Before(place);
    if (place == std::string_view::npos || place < begin || text_[place] != context[left - 1]) return false;
  }
  return true;
}

std::string AtIndex::ContextOf(std::size_t begin, std::uint32_t which) const {
  std::string context;
  std::size_t place = ats_[which].Place;
  while (context.size() < kLengths.back()) {
    place = Before(place);
    if (place == std::string_view::npos || place < begin || text_[place] == '@') break;
    context += text_[place];
  }
  std::reverse(context.begin(), context.end());
  return context;
}

void AtIndex::Build(std::size_t begin, std::size_t table) {
  std::size_t count = 0;
  for (const At& at : ats_) count += at.Place >= begin && !gone_[at.Place] ? 1 : 0;
  tables_[table].Heads.assign(std::bit_ceil(count + 1), kNone);
  tables_[table].Entries.reserve(count);
  for (std::uint32_t which = 0; which < ats_.size(); ++which) {
    At& at = ats_[which];
    if (at.Place < begin || gone_[at.Place]) continue;
    const std::string context = ContextOf(begin, which);
    at.Known = static_cast<std::uint8_t>(context.size());
    if (context.size() >= kLengths[table]) Add(table, context, which);
  }
}

void AtIndex::AddGrown(std::size_t begin, std::uint32_t which) {
  // Several neighbours may have been removed; the last of them adds what is left.
  if (which == kNone || gone_[ats_[which].Place]) return;
  const std::string context = ContextOf(begin, which);
  At& at = ats_[which];
  for (std::size_t table = 0; table < kLengths.size(); ++table) {
    if (tables_[table].Heads.empty()) continue;
    if (at.Known < kLengths[table] && kLengths[table] <= context.size()) Add(table, context, which);
  }
  at.Known = std::max(at.Known, static_cast<std::uint8_t>(context.size()));
}

void AtIndex::Add(std::size_t table, std::string_view context, std::uint32_t which) {
  Table& to = tables_[table];
  const std::uint32_t hash = HashOf(context.substr(context.size() - kLengths[table]));
  std::uint32_t& head = to.Heads[hash & (to.Heads.size() - 1)];
  to.Entries.push_back({hash, which, head});
  head = static_cast<std::uint32_t>(to.Entries.size() - 1);
}

}  // namespace requite
