// SPDX-License-Identifier: MIT
// Converts texts between the code page and UTF-8, the form in the database that other programs can read.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// The five bytes that the code page leaves undefined become the control characters of the same number,
/// so every byte survives the way there and back.
[[nodiscard]] std::string ToDatabaseText(std::string_view text);
/// A character outside the code page becomes "?".
[[nodiscard]] std::string FromDatabaseText(std::string_view utf8);

}  // namespace requite
