// SPDX-License-Identifier: MIT
// Finds an unknown word and the one that was probably meant.
#include "console/unknown_word.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <numeric>

namespace requite {
namespace {

/// How many letters have to be inserted, deleted, replaced or swapped with their neighbour.
std::size_t Distance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> before(b.size() + 1);
  std::vector<std::size_t> above(b.size() + 1);
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(above.begin(), above.end(), 0);
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) row[j] = std::min(row[j], before[j - 2] + 1);
    }
    std::swap(before, above);
    std::swap(above, row);
  }
  return above[b.size()];
}

std::vector<std::string> OptionsOf(CLI::App& app) {
  std::vector<std::string> names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    for (const std::string& name : option->get_snames()) names.push_back("-" + name);
  }
  return names;
}

std::vector<CLI::App*> CommandsOf(CLI::App& app) {
  return app.get_subcommands([](CLI::App*) { return true; });
}

/// A command with this option, for an option written before its command.
std::string CommandWithOption(CLI::App& app, const std::string& option) {
  for (CLI::App* command : CommandsOf(app)) {
    const std::vector<std::string> options = OptionsOf(*command);
    if (std::find(options.begin(), options.end(), option) != options.end()) return command->get_name();
  }
  return {};
}

std::string WithNearest(const std::string& complaint, const std::string& word,
                        const std::vector<std::string>& candidates) {
  const std::string nearest = NearestWord(word, candidates);
  return nearest.empty() ? complaint : complaint + ", did you mean " + nearest + "?";
}

}  // namespace

std::string NearestWord(const std::string& word, const std::vector<std::string>& candidates) {
  constexpr std::size_t kLongestWord = 64;
  if (word.size() > kLongestWord) return {};
  std::string nearest;
  // Up to a third of the letters may be wrong. With more, the guess helps nobody.
  std::size_t least = std::max<std::size_t>(1, word.size() / 3) + 1;
  for (const std::string& each : candidates) {
    const std::size_t distance = Distance(word, each);
    if (distance >= least) continue;
    least = distance;
    nearest = each;
  }
  return nearest;
}

std::string UnknownWord(CLI::App& app) {
  const std::vector<std::string> unknown = app.remaining(true);
  if (unknown.empty()) return {};
  const bool isOption = unknown[0].size() > 1 && unknown[0][0] == '-';
  const std::string word = isOption ? unknown[0].substr(0, unknown[0].find('=')) : unknown[0];
  const std::vector<CLI::App*> used = app.get_subcommands();
  // Words unknown to the program itself come first; the command has not been read then.
  const bool ofCommand = app.remaining(false).empty() && !used.empty();
  if (isOption) {
    if (std::string command = ofCommand ? std::string() : CommandWithOption(app, word); !command.empty()) {
      return "option " + word + " belongs after its command, such as " + command;
    }
    return WithNearest("unknown option " + word, word, OptionsOf(ofCommand ? *used[0] : app));
  }
  if (ofCommand) return "unexpected argument " + word;
  std::vector<std::string> commands;
  for (const CLI::App* command : CommandsOf(app)) commands.push_back(command->get_name());
  return WithNearest("unknown command " + word, word, commands);
}

}  // namespace requite
