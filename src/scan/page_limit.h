// SPDX-License-Identifier: MIT
// The pages a site may take, by the index chosen in cmbAdvance.
#pragma once

#include <cstdint>

namespace requite {

/// The limit for an index of 0 to 12; any other index leaves the limit as it was.
[[nodiscard]] std::int32_t PageLimitAt(std::int16_t index, std::int32_t asItWas);

}  // namespace requite
