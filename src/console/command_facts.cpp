// SPDX-License-Identifier: MIT
// Reads the commands and options out of the parser.
#include "console/command_facts.h"

#include "console/grammar.h"

namespace requite {
namespace {

OptionFacts FactsOf(const CLI::Option& option) {
  OptionFacts facts;
  for (const std::string& name : option.get_snames()) facts.Names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) facts.Names.push_back("--" + name);
  if (facts.Names.empty()) facts.Names.push_back(option.get_name());
  facts.Values = option.get_items_expected_min();
  if (facts.Values > 0) facts.Form = option.get_type_name();
  facts.Repeats =
      option.get_trigger_on_parse() || option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll;
  facts.Words = option.get_description();
  if (option.get_group() != "Options") facts.Group = option.get_group();
  facts.Required = option.get_required();
  return facts;
}

CommandFacts FactsOf(const CLI::App& app) {
  CommandFacts facts{app.get_name(), app.get_description(), {}, {}, app.get_footer()};
  for (const CLI::Option* option : app.get_options()) {
    (option->get_positional() ? facts.Arguments : facts.Options).push_back(FactsOf(*option));
  }
  return facts;
}

}  // namespace

std::vector<CommandFacts> DescribeCommands() {
  const Grammar grammar;
  std::vector<CommandFacts> commands{FactsOf(grammar.App)};
  for (const CLI::App* app : grammar.App.get_subcommands([](const CLI::App*) { return true; })) {
    commands.push_back(FactsOf(*app));
  }
  return commands;
}

}  // namespace requite
