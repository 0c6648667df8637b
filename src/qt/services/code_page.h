// SPDX-License-Identifier: MIT
// The one place where the program's 8-bit text (Windows-1252) meets Unicode.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace requite {

/// Each byte becomes one character. The five bytes that the code page leaves undefined become the C1
/// controls of the same number, so every byte survives a round trip.
[[nodiscard]] QString ToUnicode(std::string_view bytes);
[[nodiscard]] std::string ToUtf8(std::string_view bytes);

/// A character outside the code page becomes one "?", as does each fault in UTF-8.
[[nodiscard]] std::string FromUnicode(const QString& text);
[[nodiscard]] std::string FromUtf8(std::string_view utf8);

/// The name of a host as DNS has it: an international one in its ASCII form, whatever the locale. Empty
/// when the host has no such form.
[[nodiscard]] std::string AsciiHost(std::string_view host);

}  // namespace requite
