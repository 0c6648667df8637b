// SPDX-License-Identifier: MIT
// The command `settings`: stores what the command line asks for, and lists all settings.
#pragma once

#include <iosfwd>
#include <string>

#include "console/text_codec.h"
#include "platform/services.h"

namespace requite {

enum class SettingsFormat { Default, Text, Tsv, Json };

struct SettingsOptions {
  std::string FormatName;                           ///< as typed
  SettingsFormat Format = SettingsFormat::Default;  ///< text on a terminal, otherwise tsv
};

/// Completes what was read. Returns the first problem, or an empty text.
[[nodiscard]] std::string TakeSettings(SettingsOptions& options);

/// Prints every setting with its value in the store. Values are in the code page, but for LastProject.
void ListSettings(SettingsStore& store, const SettingsOptions& options, bool outIsTerminal,
                  const TextCodec& codec, std::ostream& out);

}  // namespace requite
