// SPDX-License-Identifier: MIT
// Finding a command by its word, and the words that several commands complain with.
#include "console/script_commands.h"

namespace requite {

const ScriptCommand* FindCommand(std::string_view name) {
  for (const std::span<const ScriptCommand> table : {HandCommands(), PrintCommands(), ProgramCommands()}) {
    for (const ScriptCommand& command : table) {
      if (command.Name == name) return &command;
    }
  }
  return nullptr;
}

Complaint NoControl(std::string_view name) { return "there is no control \"" + std::string(name) + "\""; }

Complaint NoUse(std::string_view name) { return "\"" + std::string(name) + "\" has no use for this command"; }

Complaint NoNumber(std::string_view text) {
  return "\"" + std::string(text) + "\" is no number that can be used here";
}

}  // namespace requite
