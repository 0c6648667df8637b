// SPDX-License-Identifier: MIT
// The message about an unknown word on the command line.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}  // namespace CLI

namespace requite {

/// The candidate with the fewest letters to change, or an empty text when none is close.
[[nodiscard]] std::string NearestWord(const std::string& word, const std::vector<std::string>& candidates);

/// One line that names the first word that neither `app` nor the command in use knows, with the nearest
/// known one; empty when all are known. Call it after parsing, even if that failed.
[[nodiscard]] std::string UnknownWord(CLI::App& app);

}  // namespace requite
