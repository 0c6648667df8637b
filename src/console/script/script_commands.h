// SPDX-License-Identifier: MIT
// The commands of scripts.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "console/script/script_line.h"
#include "console/script/script_session.h"

namespace requite {

/// The arguments of a command, unescaped, in UTF-8.
using Words = std::vector<std::string>;

struct ScriptCommand {
  std::string_view Name;
  std::string_view Form;  ///< as it is written in a script
  std::string_view Does;  ///< for the table of commands
  std::size_t LeastArguments;
  std::size_t MostArguments;  ///< the last one runs to the end of the line
  Complaint (*Run)(ScriptSession& session, const Words& words);
  bool WorksAfterClose = false;
  Escapes OfArguments = Escapes::Replace;
};

/// All commands, one a line: the form and what it does.
[[nodiscard]] std::string CommandTable();

/// Null for a word that is no command.
[[nodiscard]] const ScriptCommand* FindCommand(std::string_view name);

/// The parts of the table, each in a file of its own: what a user does, what is printed, and what
/// controls the script.
[[nodiscard]] std::span<const ScriptCommand> HandCommands();
[[nodiscard]] std::span<const ScriptCommand> PrintCommands();
[[nodiscard]] std::span<const ScriptCommand> ProgramCommands();

/// What several commands complain with.
[[nodiscard]] Complaint NoControl(std::string_view name);
[[nodiscard]] Complaint NoUse(std::string_view name);
[[nodiscard]] Complaint NoNumber(std::string_view text);
[[nodiscard]] Complaint NoRow(std::string_view name, std::string_view row);
[[nodiscard]] Complaint NoOpenWindow(std::string_view name);

}  // namespace requite
