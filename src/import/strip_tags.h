// SPDX-License-Identifier: MIT
// Removes the tags from the output of a script.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// Takes the text from its first "<" through its first ">" and removes every occurrence of it, and
/// repeats this until one of the two is missing or the ">" comes first: one stray ">" before the first
/// "<" ends it for good. Tags that form when text around a removed one joins count too. The time is
/// nearly linear in the text, whatever it holds.
[[nodiscard]] std::string StripTags(std::string_view text);

}  // namespace requite
