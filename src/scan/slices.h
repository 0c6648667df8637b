// SPDX-License-Identifier: MIT
// A page may have 64 MiB, and a Stop or Skip must not wait until a step is through with all of it: steps
// over a whole page work in slices and let events run between them.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

#include "platform/services.h"
#include "platform/text_search.h"

namespace requite {

struct Slices {
  /// Lets events run. False when the scan was stopped: the step breaks off, and what it has so far is
  /// of no use. Pages of one slice never come here, so nothing changes for them.
  std::function<bool()> GoOn;
  /// Bytes between two looks at the events: a few milliseconds at the most.
  std::size_t Bytes = std::size_t{1} << 20;
};

/// The slices of a step of a scan. `scanning` is read after each; both arguments must outlive the slices.
[[nodiscard]] Slices SlicesOf(const bool& scanning, EventLoop& events);

/// Finder.Find(text, from) in slices; nothing when broken off.
[[nodiscard]] std::optional<std::size_t> FindInSlices(const TextFinder& finder, std::string_view text,
                                                      std::size_t from, const Slices& slices);

}  // namespace requite
