// SPDX-License-Identifier: MIT
// The program's 8-bit text (Windows-1252) as UTF-8, and back.
#pragma once

#include <string>
#include <string_view>

namespace requite {

/// Each byte becomes one character. The five bytes that the code page leaves undefined become the C1
/// controls of the same number, so every byte survives a round trip.
[[nodiscard]] std::string ToUtf8(std::string_view bytes);

/// A character outside the code page becomes one "?", as does each byte that begins no whole character. A
/// byte order mark at the beginning is left out.
[[nodiscard]] std::string FromUtf8(std::string_view utf8);

}  // namespace requite
