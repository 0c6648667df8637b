// SPDX-License-Identifier: MIT
// The facts of the two programs, from the tables that they are run by.
#include "manual/programs.h"

#include <algorithm>

#include "console/settings_table.h"
#include "shell/window_words.h"

namespace requite {

ProgramFacts FactsOfWindow() {
  CommandFacts itself{"requite", "", {}, {}, ""};
  for (const WindowWord& word : kWindowWords) {
    OptionFacts& option = itself.Options.emplace_back();
    if (!word.Short.empty()) option.Names.emplace_back(word.Short);
    option.Names.emplace_back(word.Long);
    option.Words = word.Words;
  }
  return {"requite", "check who links back to your site", {itself}};
}

ProgramFacts FactsOfConsole() {
  return {"requite-console", "check who links back to your site, from a terminal", DescribeCommands()};
}

ValueKind KindOf(const OptionFacts& option) {
  if (option.Form.empty()) return ValueKind::None;
  // The form of an argument is its name.
  const std::string& form = option.Names.front().starts_with("-") ? option.Form : option.Names.front();
  if (form.find('|') != std::string::npos && form != "DATE|ID") return ValueKind::Choice;
  if (form == "FILE") return ValueKind::File;
  if (form == "DIR") return ValueKind::Folder;
  if (form == "PROJECT") return ValueKind::Project;
  if (form == "KEY=VALUE") return ValueKind::Setting;
  return ValueKind::Other;
}

std::string ChoicesOf(const OptionFacts& option) {
  std::string words = option.Form;
  std::replace(words.begin(), words.end(), '|', ' ');
  return words;
}

std::string SettingNames() {
  std::vector<std::string> names;
  for (const SettingFacts& each : AllSettings()) names.emplace_back(each.Key.Name);
  return Joined(names, " ");
}

std::string Joined(const std::vector<std::string>& words, const std::string& between) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
  return text;
}

}  // namespace requite
