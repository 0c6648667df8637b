// SPDX-License-Identifier: MIT
// Splits a line of a script into its command and arguments.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace requite {

/// A command and the rest of its line, still in UTF-8 and with its escapes.
struct ScriptLine {
  std::string Command;
  std::string Rest;
};

/// Nothing for a blank line or one that begins with "#". Blanks at both ends are dropped, and so is the
/// carriage return of a line from another system.
[[nodiscard]] std::optional<ScriptLine> ReadScriptLine(std::string_view line);

/// What happens to escapes. An argument that is itself a command keeps them.
enum class Escapes { Replace, Keep };

/// The arguments of a command, separated by blanks; the last of `most` runs to the end of the line.
/// Nothing when an escape is invalid.
[[nodiscard]] std::optional<std::vector<std::string>> ReadArguments(std::string_view rest, std::size_t most,
                                                                    Escapes escapes = Escapes::Replace);

/// A plain decimal number that fits an int, and nothing else in the text.
[[nodiscard]] std::optional<int> ReadNumber(std::string_view text);

}  // namespace requite
