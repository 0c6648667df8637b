// SPDX-License-Identifier: MIT
// The options of the command line that stand for a setting: plain words instead of KEY=VALUE.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/settings.h"

namespace requite {

/// Keys and values as they are given to the settings store. UTF-8.
using SettingPairs = std::vector<std::pair<std::string, std::string>>;

struct SettingWord {
  enum class Kind {
    Fixed,   ///< takes no value and gives its setting the fixed one
    Number,  ///< takes a whole number from Least to Most
    Pages,   ///< takes one of the page limits, and switches the limit on
    Text     ///< takes one line
  };
  enum class Lasts {
    ThisRun,  ///< holds over the stored value and is not stored
    Stored    ///< is stored like --set, and is the same as it in every way
  };

  std::string_view Option;  ///< with its dashes
  std::string_view Form;    ///< of the value in help; empty when it takes none. "a|b" is a choice
  SettingKey Key;
  Kind Takes;
  Lasts How;
  std::string_view Fixed;  ///< the value of Kind::Fixed
  int Least;
  int Most;
  std::string_view Words;   ///< for help
  bool OfScanOnly = false;  ///< the other commands do not know it
};

/// All of them, in the order of help.
[[nodiscard]] std::span<const SettingWord> SettingWords();

/// Appends what the word with this value stands for. Returns one line that says what is wrong with the value,
/// or an empty text.
[[nodiscard]] std::string TakeSettingWord(const SettingWord& word, const std::string& value,
                                          SettingPairs& pairs);

}  // namespace requite
