// SPDX-License-Identifier: MIT
// Completion for zsh, by its _arguments function.
#include <sstream>

#include "manual/programs.h"

namespace requite {
namespace {

/// The text inside single quotes, in which _arguments gives some characters a meaning.
std::string Quoted(const std::string& words) {
  std::string text;
  for (const char c : words) {
    if (c == '\'') {
      text += "'\\''";
    } else {
      if (c == '[' || c == ']' || c == ':' || c == '\\') text += '\\';
      text += c;
    }
  }
  return text;
}

/// What follows the option's own part: the name of the value and how it is found.
std::string Value(const OptionFacts& option) {
  const std::string name =
      ":" + Quoted(option.Names.front().starts_with("-") ? option.Form : option.Names.front());
  switch (KindOf(option)) {
    case ValueKind::None: return "";
    case ValueKind::Choice: return ":value:(" + ChoicesOf(option) + ")";
    case ValueKind::File: return name + ":_files";
    case ValueKind::Folder: return name + ":_files -/";
    case ValueKind::Project: return name + ":_files -g \"*.prj\"";
    case ValueKind::Setting: return name + ":compadd -S = - " + SettingNames();
    case ValueKind::Other: break;
  }
  return name + ": ";
}

/// The specifications of a command's options and arguments, one a line.
std::string Specifications(const CommandFacts& command, const std::string& indent) {
  std::ostringstream text;
  for (const OptionFacts& option : command.Options) {
    const std::string except =
        option.Repeats ? "*" : (option.Names.size() > 1 ? "(" + Joined(option.Names, " ") + ")" : "");
    for (const std::string& name : option.Names) {
      const bool takesSign = option.Values > 0 && name.starts_with("--");
      text << " \\\n"
           << indent << "'" << except << name << (takesSign ? "=" : "") << "[" << Quoted(option.Words) << "]"
           << Value(option);
      for (int more = 1; more < option.Values; ++more) text << ":word: ";
      text << "'";
    }
  }
  int number = 0;
  for (const OptionFacts& argument : command.Arguments) {
    text << " \\\n" << indent << "'" << ++number << Value(argument) << "'";
  }
  return text.str();
}

}  // namespace

std::string ZshCompletion(const ProgramFacts& program) {
  std::ostringstream text;
  text << "#compdef " << program.Name << "\n# zsh completion for " << program.Name
       << ", made from its options\n";
  if (!program.HasCommands()) {
    text << "_arguments" << Specifications(program.Itself(), "  ") << '\n';
    return text.str();
  }
  text << "local curcontext=\"$curcontext\" state line\nlocal -a commands\n"
       << "_arguments -C" << Specifications(program.Itself(), "  ")
       << " \\\n  '1:command:->command' \\\n  '*::word:->words'\n"
       << "case $state in\n  command)\n    commands=(\n";
  for (const CommandFacts& command : program.Commands) {
    if (&command == &program.Itself()) continue;
    text << "      '" << command.Name << ":" << Quoted(command.Words) << "'\n";
  }
  text << "    )\n    _describe -t commands command commands;;\n  words)\n    case $words[1] in\n";
  for (const CommandFacts& command : program.Commands) {
    if (&command == &program.Itself()) continue;
    text << "      " << command.Name << ")\n        _arguments" << Specifications(command, "          ")
         << ";;\n";
  }
  text << "    esac;;\nesac\n";
  return text.str();
}

}  // namespace requite
