// SPDX-License-Identifier: MIT
// What is said of a word on the command line that means nothing.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}  // namespace CLI

namespace requite {

/// The candidate with the fewest letters to change, or an empty text when none is near the word.
[[nodiscard]] std::string NearestWord(const std::string& word, const std::vector<std::string>& candidates);

/// One line that names the first word that neither `app` nor the command in use knows, with the nearest
/// right one; empty when they know them all. Asked after a parse, whether it failed or not.
[[nodiscard]] std::string UnknownWord(CLI::App& app);

}  // namespace requite
