// SPDX-License-Identifier: MIT
// Searches in slices.
#include "scan/slices.h"

#include <algorithm>

namespace requite {

Slices SlicesOf(const bool& scanning, EventLoop& events) {
  return {[&scanning, &events] {
    events.LetPendingEventsRun();
    return scanning;
  }};
}

std::optional<std::size_t> FindInSlices(const TextFinder& finder, std::string_view text, std::size_t from,
                                        const Slices& slices) {
  // The pattern begins in the slice; its rest may be after it.
  const std::size_t overlap = std::max<std::size_t>(finder.Pattern().size(), 1) - 1;
  for (;; from += slices.Bytes) {
    const std::string_view window = text.substr(0, from + slices.Bytes + overlap);
    const std::size_t at = finder.Find(window, from);
    if (at != std::string_view::npos || window.size() == text.size()) return at;
    if (!slices.GoOn()) return std::nullopt;
  }
}

}  // namespace requite
