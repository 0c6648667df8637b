// SPDX-License-Identifier: MIT
// Each url is held once, however many slots have it.
#include "scan/seen_pages.h"

#include <utility>

#include "platform/runtime_failure.h"

namespace requite {

void SeenPages::Store(std::int32_t index, HashedText lowerUrl) {
  if (index < 0 || index >= kSlots) throw RuntimeFailure(Failure::Subscript);
  const auto slot = static_cast<std::size_t>(index);
  if (slot >= slots_.size()) slots_.resize(slot + 1);
  const std::uint32_t known = urls_.Find(lowerUrl);
  if (known != TextIndex::kNone && slots_[slot].Url == known) return;
  Empty(index);
  if (lowerUrl.Text.empty()) return;
  const std::uint32_t url = urls_.Add(lowerUrl);
  std::int32_t before = kEnd;
  std::int32_t after = urls_.Value(url) - 1;
  while (after != kEnd && after < index) {
    before = after;
    after = slots_[static_cast<std::size_t>(after)].Next;
  }
  slots_[slot] = {url, after};
  if (before == kEnd) {
    urls_.Value(url) = index + 1;
  } else {
    slots_[static_cast<std::size_t>(before)].Next = index;
  }
}

void SeenPages::Empty(std::int32_t index) {
  const Slot old = std::exchange(slots_[static_cast<std::size_t>(index)], {});
  if (old.Url == TextIndex::kNone) return;
  const std::int32_t first = urls_.Value(old.Url) - 1;
  if (first == index) {
    urls_.Value(old.Url) = old.Next + 1;
    if (old.Next == kEnd) urls_.Remove(old.Url);
    return;
  }
  auto before = static_cast<std::size_t>(first);
  while (slots_[before].Next != index) before = static_cast<std::size_t>(slots_[before].Next);
  slots_[before].Next = old.Next;
}

bool SeenPages::HasUpTo(std::int32_t last, HashedText lowerUrl) const {
  const std::uint32_t url = urls_.Find(lowerUrl);
  return url != TextIndex::kNone && urls_.Value(url) - 1 <= last;
}

}  // namespace requite
