// SPDX-License-Identifier: MIT
// The manual pages, in the language of man(7).
#include <algorithm>
#include <map>
#include <set>
#include <sstream>

#include "console/script/script_commands.h"
#include "console/settings_table.h"
#include "manual/programs.h"

namespace requite {
namespace {

/// Text in which nothing is a request or an escape of the formatter.
std::string Plain(std::string_view words) {
  std::string text;
  for (const char c : words) {
    const bool lineStart = text.empty() || text.back() == '\n';
    if (lineStart && (c == '.' || c == '\'')) text += "\\&";
    if (c == '\\') {
      text += "\\e";
    } else if (c == '-') {
      text += "\\-";
    } else {
      text += c;
    }
  }
  return text;
}

std::string Bold(std::string_view words) { return "\\fB" + Plain(words) + "\\fR"; }
std::string Italic(std::string_view words) { return "\\fI" + Plain(words) + "\\fR"; }

/// A term and what it means.
void Item(std::ostream& text, const std::string& term, std::string_view words) {
  text << ".TP\n" << term << '\n' << Plain(words) << '\n';
}

void OptionItem(std::ostream& text, const OptionFacts& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.Names) names.push_back(Bold(name));
  // A long choice breaks between its words.
  std::string form = Italic(option.Form);
  for (std::size_t at = form.find('|'); at != std::string::npos; at = form.find('|', at + 3))
    form.insert(at + 1, "\\:");
  Item(text, Joined(names, ", ") + (option.Form.empty() ? "" : " " + form), option.Words);
}

void Title(std::ostream& text, const ProgramFacts& program, const std::string& source) {
  std::string upper = program.Name;
  std::transform(upper.begin(), upper.end(), upper.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? c - 32 : c; });
  text << ".\\\" Made from the tables that the program itself is run by.\n"
       << ".TH " << Plain(upper) << " 1 \"\" \"" << source << "\" \"User Commands\"\n"
       << ".SH NAME\n"
       << Plain(program.Name) << " \\- " << Plain(program.Words) << '\n';
}

/// The paragraphs at the end of a command's help. Lines that begin with a blank keep their form.
void Footer(std::ostream& text, const std::string& footer) {
  std::istringstream lines(footer);
  bool asIs = false;
  for (std::string line; std::getline(lines, line);) {
    const bool blank = line.starts_with(' ');
    if (blank && !asIs) text << ".PP\n.nf\n";
    if (!blank && asIs) text << ".fi\n";
    if (!blank) text << ".PP\n";
    asIs = blank;
    text << Plain(line) << '\n';
  }
  if (asIs) text << ".fi\n";
}

/// An option is the same in two commands when its name and its words are.
std::string Identity(const OptionFacts& option) { return option.Names.back() + '\n' + option.Words; }

/// The options that more than one command has, in the order in which they come first.
std::vector<OptionFacts> SharedOptions(const ProgramFacts& program) {
  std::map<std::string, int> uses;
  std::vector<OptionFacts> shared;
  for (const CommandFacts& command : program.Commands) {
    for (const OptionFacts& option : command.Options) {
      if (++uses[Identity(option)] == 2) shared.push_back(option);
    }
  }
  return shared;
}

void Command(std::ostream& text, const ProgramFacts& program, const CommandFacts& command,
             const std::set<std::string>& shared) {
  text << ".SS " << Plain(program.Name) << ' ' << Plain(command.Name);
  for (const OptionFacts& argument : command.Arguments) {
    const std::string& name = argument.Names.front();
    text << ' ' << (argument.Required ? Plain(name) : "[" + Plain(name) + "]");
  }
  text << " [options]\n" << Plain(command.Words) << ".\n";
  for (const OptionFacts& argument : command.Arguments)
    Item(text, Italic(argument.Names.front()), argument.Words);
  std::vector<std::string> further;
  for (const OptionFacts& option : command.Options) {
    if (shared.count(Identity(option)) == 0) {
      OptionItem(text, option);
    } else if (option.Group.empty()) {
      further.push_back(Bold(option.Names.back()));
    }
  }
  const bool words = std::any_of(command.Options.begin(), command.Options.end(),
                                 [](const OptionFacts& each) { return !each.Group.empty(); });
  text << ".PP\nAlso: " << Joined(further, ", ") << (words ? ", and the words for settings" : "") << ".\n";
  Footer(text, command.Footer);
}

void Files(std::ostream& text) {
  text << ".SH FILES\n";
  Item(text, "\\fI~/.local/share/requite\\fR",
       "The program's folder: projects, reports, work files, rules and the history of scans. "
       "XDG_DATA_HOME, when it is set, stands for ~/.local/share.");
  Item(text, "\\fI~/.config/requite/settings\\fR",
       "The settings, which the window and the terminal program share. XDG_CONFIG_HOME, when it is set, "
       "stands for "
       "~/.config.");
  Item(text, "\\fI/usr/share/doc/requite\\fR",
       "The README, a schema of the results as JSON, and a nightly job for systemd.");
}

}  // namespace

std::string WindowPage(const ProgramFacts& program, const std::string& source) {
  std::ostringstream text;
  Title(text, program, source);
  text << ".SH SYNOPSIS\n" << Bold(program.Name);
  for (const OptionFacts& option : program.Itself().Options) text << " [" << Bold(option.Names.back()) << "]";
  text << "\n.SH DESCRIPTION\n"
       << "Requite is for webmasters who exchange links. It reads the sites that ought to link back, page by "
          "page, looks "
          "for links to yours, and gives each a verdict with a reason.\n"
       << ".PP\nThe window opens with the project of the last time. F1 opens the help.\n"
       << Bold("requite-console open")
       << " opens another project, and the desktop does so for files that end in\n"
       << Italic(".prj") << ".\n.SH OPTIONS\n";
  for (const OptionFacts& option : program.Itself().Options) OptionItem(text, option);
  text << ".SH EXIT STATUS\n0 when the window was closed, 1 without a display, 70 when a failure ended the "
          "program. Unsaved\n"
          "work is then in\n.IR Recovered.prj .\n";
  Files(text);
  text << ".SH SEE ALSO\n.BR requite\\-console (1)\n";
  return text.str();
}

std::string ConsolePage(const ProgramFacts& program, const std::string& source) {
  std::ostringstream text;
  Title(text, program, source);
  text << ".SH SYNOPSIS\n"
       << Bold(program.Name) << ' ' << Italic("COMMAND") << " [" << Italic("OPTION") << "]... ["
       << Italic("FILE") << "]...\n.SH DESCRIPTION\n"
       << Plain(program.Itself().Words) << '\n'
       << ".PP\nIt uses the settings and the folder of the window,\n.BR requite (1).\n.SH COMMANDS\n";
  const std::vector<OptionFacts> shared = SharedOptions(program);
  std::set<std::string> identities;
  for (const OptionFacts& option : shared) identities.insert(Identity(option));
  for (const CommandFacts& command : program.Commands) {
    if (&command != &program.Itself()) Command(text, program, command, identities);
  }
  text << ".SH OPTIONS OF SEVERAL COMMANDS\n";
  std::string group;
  // The options with a heading come last.
  for (const bool headed : {false, true}) {
    for (const OptionFacts& option : shared) {
      if (option.Group.empty() == headed) continue;
      if (option.Group != group) text << ".SS " << Plain(group = option.Group) << '\n';
      OptionItem(text, option);
    }
  }
  text << ".SH SETTINGS\nFor " << Bold("--set") << " and for scripts. The values are texts.\n";
  for (const SettingFacts& each : AllSettings()) {
    Item(text, Bold(each.Key.Name) + " (" + Plain(each.Values) + ")", each.Meaning);
  }
  text << ".SH COMMANDS OF A SCRIPT\n";
  for (const auto& table : {HandCommands(), PrintCommands(), ProgramCommands()}) {
    for (const ScriptCommand& each : table) Item(text, Bold(each.Form), each.Does);
  }
  Files(text);
  text << ".SH EXAMPLE\nA nightly job that tells by its exit status whether every site still links back:\n"
       << ".PP\n.nf\n"
       << Plain("requite-console scan partners.prj --private -q --report partners.html") << "\n.fi\n"
       << ".SH SEE ALSO\n.BR requite (1)\n";
  return text.str();
}

}  // namespace requite
