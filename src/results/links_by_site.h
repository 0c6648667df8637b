// SPDX-License-Identifier: MIT
// How many links each site of the results has.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/project.h"

namespace requite {

struct SiteLinks {
  std::string Site;  ///< as the results name it
  std::int32_t Links = 0;
};

/// The sites with the most links first, the others in the order of the results; those without links are at
/// the end. A site is one for all Main Sites.
[[nodiscard]] std::vector<SiteLinks> LinksBySite(const RecordList<LinkResult>& results);

}  // namespace requite
