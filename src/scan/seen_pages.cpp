// SPDX-License-Identifier: MIT
// A table of urls with a hashed index.
#include "scan/seen_pages.h"

#include <algorithm>

#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {

void SeenPages::Store(std::int32_t index, const std::string& url) {
  if (index < 0 || index >= kSlots) throw RuntimeFailure(Failure::Subscript);
  const auto slot = static_cast<std::size_t>(index);
  if (slot >= slots_.size()) slots_.resize(slot + 1);
  if (!slots_[slot].empty()) {
    const auto old = slotsOf_.find(Lower(slots_[slot]));
    std::erase(old->second, index);
    if (old->second.empty()) slotsOf_.erase(old);
  }
  slots_[slot] = url;
  longest_ = std::max(longest_, url.size());
  if (url.empty()) return;
  std::vector<std::int32_t>& held = slotsOf_[Lower(url)];
  held.insert(std::upper_bound(held.begin(), held.end(), index), index);
}

bool SeenPages::HasUpTo(std::int32_t last, const std::string& lowerUrl) const {
  const auto found = slotsOf_.find(lowerUrl);
  return found != slotsOf_.end() && found->second.front() <= last;
}

}  // namespace requite
