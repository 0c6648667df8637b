// SPDX-License-Identifier: MIT
// One line of a script, taken apart.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace requite {

/// A command word and what stands behind it, still in UTF-8 and with its escapes.
struct ScriptLine {
  std::string Command;
  std::string Rest;
};

/// Nothing for a blank line and for one that begins with "#". Blanks at both ends go, as does the
/// carriage return of a line from elsewhere.
[[nodiscard]] std::optional<ScriptLine> ReadScriptLine(std::string_view line);

/// What becomes of escapes: the argument that is a command itself keeps its own.
enum class Escapes { Replace, Keep };

/// The arguments of a command, parted by blanks; the last of `most` runs to the end of the line.
/// Nothing when an escape is none.
[[nodiscard]] std::optional<std::vector<std::string>> ReadArguments(std::string_view rest, std::size_t most,
                                                                    Escapes escapes = Escapes::Replace);

/// A plain decimal number that fits an int, with nothing around it.
[[nodiscard]] std::optional<int> ReadNumber(std::string_view text);

}  // namespace requite
