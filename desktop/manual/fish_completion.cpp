// SPDX-License-Identifier: MIT
// Completion for fish: one line for each command, option and argument.
#include <sstream>

#include "manual/programs.h"

namespace requite {
namespace {

std::string Quoted(const std::string& words) {
  std::string text = "'";
  for (const char c : words) {
    if (c == '\'' || c == '\\') text += '\\';
    text += c;
  }
  return text + "'";
}

/// How a value is found; the flags of `complete`.
std::string Value(const OptionFacts& option) {
  switch (KindOf(option)) {
    case ValueKind::None: return "";
    case ValueKind::Choice: return " -x -a " + Quoted(ChoicesOf(option));
    case ValueKind::File: return " -r -F";
    case ValueKind::Folder: return " -x -a '(__fish_complete_directories)'";
    case ValueKind::Project: return " -x -a '(__fish_complete_suffix .prj)'";
    case ValueKind::Setting: return " -x -a '(string replace -r \"\\$\" \"=\" " + SettingNames() + ")'";
    case ValueKind::Other: break;
  }
  return " -x";
}

std::string NameFlags(const OptionFacts& option) {
  std::string flags;
  for (const std::string& name : option.Names) {
    flags += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  }
  return flags;
}

}  // namespace

std::string FishCompletion(const ProgramFacts& program) {
  std::ostringstream text;
  text << "# fish completion for " << program.Name << ", made from its options\n";
  const std::string start = "complete -c " + program.Name;
  text << start << " -f\n";
  for (const CommandFacts& command : program.Commands) {
    const bool itself = &command == &program.Itself();
    std::string when =
        itself ? " -n __fish_use_subcommand" : " -n '__fish_seen_subcommand_from " + command.Name + "'";
    if (!program.HasCommands()) when.clear();
    if (!itself) {
      text << start << " -n __fish_use_subcommand -a " << command.Name << " -d " << Quoted(command.Words)
           << '\n';
    }
    for (const OptionFacts& option : command.Options) {
      text << start << when << NameFlags(option) << Value(option) << " -d " << Quoted(option.Words) << '\n';
    }
    if (command.Arguments.empty()) continue;
    // Only the first argument of a command is told apart.
    const ValueKind kind = KindOf(command.Arguments.front());
    text << start << when << (kind == ValueKind::File ? " -F" : Value(command.Arguments.front())) << '\n';
  }
  return text.str();
}

}  // namespace requite
