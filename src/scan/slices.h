// SPDX-License-Identifier: MIT
// A page may have 64 MiB, and a Stop or Skip must not wait until a step has read all of it. So steps that
// read a whole page do it in slices and let events run between them.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

#include "platform/services.h"
#include "platform/text_search.h"

namespace requite {

struct Slices {
  /// Lets events run. False after a stop: the step ends, and its result so far is not used. Not called for a
  /// page of one slice.
  std::function<bool()> GoOn;
  /// Bytes between two yields: takes a few milliseconds at most.
  std::size_t Bytes = std::size_t{1} << 20;
};

/// The slices of a step of a scan, which continues while `scanning` is true. Both must outlive the slices.
[[nodiscard]] Slices SlicesOf(const bool& scanning, EventLoop& events);

/// finder.Find(text, from) in slices; nothing after a stop.
[[nodiscard]] std::optional<std::size_t> FindInSlices(const TextFinder& finder, std::string_view text,
                                                      std::size_t from, const Slices& slices);

}  // namespace requite
