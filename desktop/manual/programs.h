// SPDX-License-Identifier: MIT
// What the manual pages and the completion are made from.
#pragma once

#include <string>
#include <vector>

#include "console/command_facts.h"

namespace requite {

struct ProgramFacts {
  std::string Name;
  std::string Words;                   ///< what it is, in half a sentence
  std::vector<CommandFacts> Commands;  ///< the first is the program itself

  [[nodiscard]] const CommandFacts& Itself() const { return Commands.front(); }
  [[nodiscard]] bool HasCommands() const { return Commands.size() > 1; }
};

/// The window program and the console.
[[nodiscard]] ProgramFacts FactsOfWindow();
[[nodiscard]] ProgramFacts FactsOfConsole();

/// What the value of an option or an argument is, by the form that help shows.
enum class ValueKind { None, Choice, File, Folder, Project, Setting, Other };
[[nodiscard]] ValueKind KindOf(const OptionFacts& option);
/// The words of a choice, with a blank between them.
[[nodiscard]] std::string ChoicesOf(const OptionFacts& option);
/// The keys of all settings, with a blank between them.
[[nodiscard]] std::string SettingNames();
[[nodiscard]] std::string Joined(const std::vector<std::string>& words, const std::string& between);

/// The texts of the files. `source` is the name and version of the program's package.
[[nodiscard]] std::string WindowPage(const ProgramFacts& program, const std::string& source);
[[nodiscard]] std::string ConsolePage(const ProgramFacts& program, const std::string& source);
[[nodiscard]] std::string BashCompletion(const ProgramFacts& program);
[[nodiscard]] std::string ZshCompletion(const ProgramFacts& program);
[[nodiscard]] std::string FishCompletion(const ProgramFacts& program);

}  // namespace requite
