// SPDX-License-Identifier: MIT
// All settings for the command `settings`: what their values are and what they mean.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "model/settings.h"

namespace requite {

struct SettingFacts {
  SettingKey Key;
  std::string_view Values;  ///< which ones there are, in words
  std::string_view Meaning;
};

/// In the order in which they are listed: those of a scan come first.
[[nodiscard]] std::span<const SettingFacts> AllSettings();

/// The options of the command line that stand for a setting, joined by a comma and a blank; empty when it has
/// none.
[[nodiscard]] std::string WordsFor(const SettingKey& key);

}  // namespace requite
