// SPDX-License-Identifier: MIT
// Taking the tags out of what a script printed.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// Looks at the text from its first "<" through its first ">" and removes every occurrence of exactly
/// that, again and again, until one of the two is missing or the ">" comes first: one stray ">" ahead of
/// the first "<" ends it for good. What is left may have joined to new tags, and these count too.
/// The time is near linear in the text, whatever it holds.
[[nodiscard]] std::string StripTags(std::string_view text);

}  // namespace requite
