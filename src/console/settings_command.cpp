// SPDX-License-Identifier: MIT
// The three forms of the list of settings.
#include "console/settings_command.h"

#include <array>
#include <iterator>
#include <ostream>
#include <utility>
#include <vector>

#include "console/settings_table.h"
#include "platform/quoting.h"

namespace requite {
namespace {

/// Captions and members of a listed setting.
constexpr const char* kColumns[] = {"key", "value", "default", "values", "option", "meaning"};
using Rows = std::vector<std::array<std::string, std::size(kColumns)>>;

/// The value as it is printed. LastProject is bytes of the file system and no text of the code page.
std::string ValueOf(const SettingKey& key, const std::string& value, bool escaped, const TextCodec& codec) {
  if (key.Name == setting::LastProject.Name) return escaped ? VisibleUtf8(value) : value;
  return codec.ToUtf8(escaped ? Escaped(value) : value);
}

Rows RowsOf(SettingsStore& store, bool escaped, const TextCodec& codec) {
  Rows rows;
  for (const SettingFacts& each : AllSettings()) {
    rows.push_back({std::string(each.Key.Name),
                    ValueOf(each.Key, Settings(store).GetSetting(each.Key), escaped, codec),
                    std::string(each.Key.Default), std::string(each.Values), WordsFor(each.Key),
                    std::string(each.Meaning)});
  }
  return rows;
}

void PrintJsonRows(const Rows& rows, std::ostream& out) {
  out << "[";
  for (const auto& row : rows) {
    out << (&row == &rows.front() ? "\n  {" : ",\n  {");
    for (std::size_t i = 0; i < row.size(); ++i) {
      out << (i == 0 ? "" : ", ") << JsonString(kColumns[i]) << ": " << JsonString(row[i]);
    }
    out << "}";
  }
  out << "\n]\n";
}

void PrintTabbedRows(const Rows& rows, std::ostream& out) {
  for (const char* const caption : kColumns) out << (caption == kColumns[0] ? "" : "\t") << caption;
  out << '\n';
  for (const auto& row : rows) {
    for (const std::string& field : row) out << (&field == &row.front() ? "" : "\t") << field;
    out << '\n';
  }
}

void PrintTextRows(const Rows& rows, std::ostream& out) {
  for (const auto& row : rows) {
    out << row[0] << " = " << row[1] << "\n    " << row[5] << "\n    values: " << row[3];
    if (row[2] != row[1]) out << "; at first " << (row[2].empty() ? "empty" : row[2]);
    if (!row[4].empty()) out << "\n    " << row[4];
    out << '\n';
  }
}

}  // namespace

std::string TakeSettings(SettingsOptions& options) {
  const std::pair<const char*, SettingsFormat> formats[] = {{"", SettingsFormat::Default},
                                                            {"text", SettingsFormat::Text},
                                                            {"tsv", SettingsFormat::Tsv},
                                                            {"json", SettingsFormat::Json}};
  for (const auto& [name, format] : formats) {
    if (options.FormatName != name) continue;
    options.Format = format;
    return {};
  }
  return "--format: \"" + options.FormatName + "\" is not text, tsv or json";
}

void ListSettings(SettingsStore& store, const SettingsOptions& options, bool outIsTerminal,
                  const TextCodec& codec, std::ostream& out) {
  const auto rows = RowsOf(store, options.Format != SettingsFormat::Json, codec);
  const bool asText =
      options.Format == SettingsFormat::Text || (options.Format == SettingsFormat::Default && outIsTerminal);
  if (options.Format == SettingsFormat::Json) {
    PrintJsonRows(rows, out);
  } else if (asText) {
    PrintTextRows(rows, out);
  } else {
    PrintTabbedRows(rows, out);
  }
}

}  // namespace requite
