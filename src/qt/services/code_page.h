// SPDX-License-Identifier: MIT
// The program's 8-bit text (Windows-1252) as the toolkit's strings, and back.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/code_page.h"  // the rules, and UTF-8

namespace requite {

[[nodiscard]] QString ToUnicode(std::string_view bytes);
[[nodiscard]] std::string FromUnicode(const QString& text);

/// The name of a host as DNS has it: an international one in its ASCII form, whatever the locale. Empty
/// when the host has no such form.
[[nodiscard]] std::string AsciiHost(std::string_view host);

}  // namespace requite
