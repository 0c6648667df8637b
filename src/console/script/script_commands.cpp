// SPDX-License-Identifier: MIT
// Finds commands and words the complaints that several of them share.
#include "console/script/script_commands.h"

#include <algorithm>
#include <array>

namespace requite {

namespace {

std::array<std::span<const ScriptCommand>, 3> Tables() {
  return {HandCommands(), PrintCommands(), ProgramCommands()};
}

}  // namespace

std::string CommandTable() {
  std::size_t width = 0;
  for (const auto& table : Tables()) {
    for (const ScriptCommand& command : table) width = std::max(width, command.Form.size());
  }
  std::string text;
  for (const auto& table : Tables()) {
    for (const ScriptCommand& command : table) {
      if (!text.empty()) text += '\n';
      text.append(command.Form).append(width + 2 - command.Form.size(), ' ').append(command.Does);
    }
  }
  return text;
}

const ScriptCommand* FindCommand(std::string_view name) {
  for (const auto& table : Tables()) {
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

Complaint NoRow(std::string_view name, std::string_view row) {
  return "\"" + std::string(name) + "\" has no row " + std::string(row);
}

Complaint NoOpenWindow(std::string_view name) { return "no open window \"" + std::string(name) + "\""; }

}  // namespace requite
