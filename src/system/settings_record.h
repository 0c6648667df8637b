// SPDX-License-Identifier: MIT
// One record of the settings journal: a line of the form key=value, with escapes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace requite {

struct SettingsRecord {
  std::string Key;
  std::string Value;
};

/// Appends the record with its line feed. Keys and values may hold any bytes: control characters and
/// backslashes (in keys "=" too) are written as "\x" and two hexadecimal digits.
void AppendSettingsRecord(std::string& journal, std::string_view key, std::string_view value);

/// The record in a line (without its line feed), or nothing when it is not a record.
[[nodiscard]] std::optional<SettingsRecord> ReadSettingsRecord(std::string_view line);

/// Ends a line that was cut short: a line that ends in it is not a record.
inline constexpr char kVoidLine = '\x18';

}  // namespace requite
