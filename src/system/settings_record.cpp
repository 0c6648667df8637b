// SPDX-License-Identifier: MIT
// The escapes of the settings journal.
#include "system/settings_record.h"

namespace requite {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

bool IsControl(unsigned char byte) { return byte < 0x20 || byte == 0x7F; }

void AppendEscaped(std::string& journal, std::string_view text, char separator) {
  for (const char byte : text) {
    const auto number = static_cast<unsigned char>(byte);
    if (IsControl(number) || byte == '\\' || byte == separator) {
      journal += {'\\', 'x', kHexDigits[number >> 4U], kHexDigits[number & 15U]};
    } else {
      journal += byte;
    }
  }
}

std::optional<std::string> Unescaped(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsControl(static_cast<unsigned char>(text[i]))) return std::nullopt;
    if (text[i] != '\\') {
      plain += text[i];
      continue;
    }
    if (i + 3 >= text.size() || text[i + 1] != 'x') return std::nullopt;
    const std::size_t high = kHexDigits.find(text[i + 2]);
    const std::size_t low = kHexDigits.find(text[i + 3]);
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    plain += static_cast<char>(high * kHexDigits.size() + low);
    i += 3;
  }
  return plain;
}

}  // namespace

void AppendSettingsRecord(std::string& journal, std::string_view key, std::string_view value) {
  AppendEscaped(journal, key, '=');
  journal += '=';
  AppendEscaped(journal, value, '\\');
  journal += '\n';
}

std::optional<SettingsRecord> ReadSettingsRecord(std::string_view line) {
  const std::size_t end = line.find('=');
  if (end == std::string_view::npos) return std::nullopt;
  std::optional<std::string> key = Unescaped(line.substr(0, end));
  std::optional<std::string> value = Unescaped(line.substr(end + 1));
  if (!key || !value) return std::nullopt;
  return SettingsRecord{*std::move(key), *std::move(value)};
}

}  // namespace requite
