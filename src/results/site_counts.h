// SPDX-License-Identifier: MIT
// How many sites of a scan link back: counted and worded in one place for the window and the console.
#pragma once

#include <cstdint>
#include <string>

namespace requite {

/// Each site is in one of the other three.
struct SiteCounts {
  std::int32_t Sites = 0;
  std::int32_t LinkBack = 0;
  std::int32_t Missing = 0;
  std::int32_t NotReached = 0;

  /// Takes the verdict on one site. One that links back was reached, whatever `reached` says.
  void Add(bool linksBack, bool reached);
};

/// "12 sites: 2 link back, 7 do not, 3 not reached"; with fewer sites than `all`, the sites that were to be
/// scanned, "5 of 12 sites: ...".
[[nodiscard]] std::string SummaryOf(const SiteCounts& counts, std::int32_t all);

}  // namespace requite
