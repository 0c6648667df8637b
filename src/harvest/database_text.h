// SPDX-License-Identifier: MIT
// Texts of the code page as they lie in the database, where any other program can read them: UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// The five bytes that the code page leaves undefined become the control characters of the same number, so
/// that each byte comes back as it was.
[[nodiscard]] std::string ToDatabaseText(std::string_view text);
/// A character outside the code page becomes "?".
[[nodiscard]] std::string FromDatabaseText(std::string_view utf8);

}  // namespace requite
