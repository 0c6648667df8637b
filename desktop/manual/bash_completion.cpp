// SPDX-License-Identifier: MIT
// Completion for bash: one function for a program, with a case for each option that takes a value.
#include <sstream>

#include "manual/programs.h"

namespace requite {
namespace {

std::string AllNames(const CommandFacts& command) {
  std::vector<std::string> names;
  for (const OptionFacts& option : command.Options) {
    for (const std::string& name : option.Names) names.push_back(name);
  }
  return Joined(names, " ");
}

/// The statement that fills COMPREPLY with values.
std::string Fill(const OptionFacts& option) {
  switch (KindOf(option)) {
    case ValueKind::Choice: return "COMPREPLY=($(compgen -W '" + ChoicesOf(option) + "' -- \"$current\"))";
    case ValueKind::File: return "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- \"$current\")";
    case ValueKind::Folder:
      return "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -d -- \"$current\")";
    case ValueKind::Project:
      return "compopt -o filenames\n        mapfile -t COMPREPLY < <(compgen -d -- \"$current\"; "
             "compgen -f -X '!*.prj' -- \"$current\")";
    case ValueKind::Setting:
      return "compopt -o nospace; COMPREPLY=($(compgen -S = -W '" + SettingNames() + "' -- \"$current\"))";
    case ValueKind::None:
    case ValueKind::Other: break;
  }
  return ":";
}

}  // namespace

std::string BashCompletion(const ProgramFacts& program) {
  const std::string function =
      "_" + program.Name.substr(0, program.Name.find('-')) + (program.HasCommands() ? "_console" : "_window");
  std::ostringstream text;
  text << "# bash completion for " << program.Name << ", made from its options\n"
       << function << "()\n{\n"
       << "  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command= word\n"
       << "  COMPREPLY=()\n"
       // bash takes the sign in --option=value as a word of its own.
       << "  [[ $current == '=' ]] && current=\n"
       << "  [[ $before == '=' ]] && before=${COMP_WORDS[COMP_CWORD-2]}\n"
       << "  for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
       << "    [[ $word == -* ]] || { command=$word; break; }\n"
       << "  done\n"
       << "  case $command:$before in\n";
  for (const CommandFacts& command : program.Commands) {
    const bool itself = &command == &program.Itself();
    for (const OptionFacts& option : command.Options) {
      if (option.Values == 0) continue;
      std::vector<std::string> patterns;
      for (const std::string& name : option.Names)
        patterns.push_back((itself ? "" : command.Name) + ":" + name);
      text << "    " << Joined(patterns, "|") << ")\n        " << Fill(option) << "\n        return;;\n";
    }
  }
  text << "  esac\n"
       << "  case $command:$current in\n";
  for (const CommandFacts& command : program.Commands) {
    const bool itself = &command == &program.Itself();
    const std::string name = itself ? "" : command.Name;
    text << "    " << name << ":-*) COMPREPLY=($(compgen -W '" << AllNames(command)
         << "' -- \"$current\"));;\n";
    if (itself && program.HasCommands()) {
      std::vector<std::string> names;
      for (const CommandFacts& each : program.Commands) {
        if (&each != &command) names.push_back(each.Name);
      }
      text << "    :*) COMPREPLY=($(compgen -W '" << Joined(names, " ") << "' -- \"$current\"));;\n";
    } else if (!command.Arguments.empty()) {
      text << "    " << name << ":*)\n        " << Fill(command.Arguments.front()) << ";;\n";
    }
  }
  text << "  esac\n}\ncomplete -F " << function << ' ' << program.Name << '\n';
  return text.str();
}

}  // namespace requite
