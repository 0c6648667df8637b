// SPDX-License-Identifier: MIT
// Decides which site of the project is which site of the history.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "history/site_record.h"

namespace requite {

/// For each site the index of its newest record among `newest`, or nothing for a site without a record. Each
/// record is given away once. Within a Main Site the URL decides: the one that the last scan ended with; else
/// the one it began with, because the project may not have been saved after it; else the host. Equal ones are
/// taken in order. `newest` is in the order of rows.
[[nodiscard]] std::vector<std::optional<std::size_t>> MatchRows(const std::vector<ProjectSite>& sites,
                                                                const std::vector<SiteRecord>& newest);

}  // namespace requite
