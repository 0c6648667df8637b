// SPDX-License-Identifier: MIT
// The few words that the window program takes on its command line.
#pragma once

#include <string_view>

namespace requite {

struct WindowWord {
  std::string_view Short;  ///< empty: it has only a long form
  std::string_view Long;
  std::string_view Words;  ///< for help
};

namespace window_word {
inline constexpr WindowWord kNew{"", "--new", "Start with an empty project instead of the last one"};
inline constexpr WindowWord kHelp{"-h", "--help", "Print this help and exit"};
inline constexpr WindowWord kVersion{"-V", "--version", "Print the version and exit"};
}  // namespace window_word

inline constexpr WindowWord kWindowWords[] = {window_word::kNew, window_word::kHelp, window_word::kVersion};

/// Any other word is left to the toolkit.
[[nodiscard]] constexpr bool IsWord(std::string_view typed, const WindowWord& word) {
  return !typed.empty() && (typed == word.Short || typed == word.Long);
}

}  // namespace requite
