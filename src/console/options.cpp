// SPDX-License-Identifier: MIT
// The command line's grammar, and its tests before anything is touched.
#include "console/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>

#include "console/path_checks.h"
#include "shell/product.h"

namespace requite {
namespace {

struct RawCommon {
  std::string ProgramFolder;
  std::string SettingsFile;
  std::vector<std::string> Settings;
  std::vector<std::string> ConnectTo;
};

void AddRepeatable(CLI::App& app, const char* name, std::vector<std::string>& values, const char* words,
                   const char* form) {
  // One value each time: the words behind it belong to the command again.
  app.add_option(name, values, words)
      ->type_name(form)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void AddEndFlags(CLI::App& app) {
  app.set_version_flag("--version", "requite-console " + std::string(product::kVersion),
                       "Print the version and exit");
  app.set_help_flag("--help", "Print this help and exit");
}

void AddCommonOptions(CLI::App& app, RawCommon& common) {
  AddEndFlags(app);
  app.add_option("--program-folder", common.ProgramFolder, "The folder that holds the program's files")
      ->type_name("DIR");
  app.add_option("--settings", common.SettingsFile, "The settings store to use")->type_name("FILE");
  AddRepeatable(app, "--set", common.Settings, "Write one setting before anything else runs", "KEY=VALUE");
  AddRepeatable(app, "--connect-to", common.ConnectTo,
                "Send connections to HOST:PORT to ADDRESS:PORT2 (an empty HOST or PORT matches any)",
                "HOST:PORT:ADDRESS:PORT2");
}

/// The first problem of the common options, or an empty text when they are in order.
std::string TakeCommon(const RawCommon& raw, CommonOptions& common) {
  for (const std::string& each : raw.Settings) {
    const std::size_t sign = each.find('=');
    if (sign == std::string::npos || sign == 0) return "--set: \"" + each + "\" is not KEY=VALUE";
    common.Settings.emplace_back(each.substr(0, sign), each.substr(sign + 1));
  }
  for (const std::string& each : raw.ConnectTo) {
    std::optional<ConnectRule> rule = ReadConnectRule(each);
    if (!rule) return "--connect-to: \"" + each + "\" is not HOST:PORT:ADDRESS:PORT2";
    common.ConnectTo.push_back(*std::move(rule));
  }
  common.ProgramFolder = AbsolutePath(raw.ProgramFolder);
  common.SettingsFile = AbsolutePath(raw.SettingsFile);
  if (std::string why = WhyNoFolder(common.ProgramFolder); !why.empty()) return "--program-folder: " + why;
  if (std::string why = WhyNoSettings(common.SettingsFile); !why.empty()) return "--settings: " + why;
  return {};
}

std::string TakeScan(ScanOptions& scan) {
  for (std::string* path : {&scan.Project, &scan.Save, &scan.Report, &scan.Tab, &scan.Page}) {
    *path = AbsolutePath(*path);
  }
  if (std::string why = WhyNotReadable(scan.Project); !why.empty()) return why;
  const std::pair<const char*, const std::string*> targets[] = {{"--save: ", &scan.Save},
                                                                {"--report: ", &scan.Report},
                                                                {"--tab: ", &scan.Tab},
                                                                {"--page: ", &scan.Page}};
  for (const auto& [option, path] : targets) {
    if (std::string why = WhyNotWritable(*path); !why.empty()) return option + why;
  }
  return {};
}

EndAtOnce Refuse(std::string why) {
  std::replace(why.begin(), why.end(), '\n', ' ');
  return {ExitStatus::Refused, "requite-console: " + why};
}

}  // namespace

std::variant<Options, EndAtOnce> ReadCommandLine(int argc, const char* const* argv) {
  RawCommon common;
  ScanOptions scan;
  ScriptOptions script;
  OpenOptions open;
  CLI::App app("Requite without its windows: scans for links back from a terminal or a nightly job.");
  app.name("requite-console");
  app.require_subcommand(1);
  AddEndFlags(app);

  CLI::App& scanCommand = *app.add_subcommand("scan", "Run one scan of a project, start to end");
  scanCommand.add_option("PROJECT", scan.Project, "The project file")->required();
  scanCommand.add_option("--save", scan.Save, "Save the project there when done")->type_name("FILE");
  scanCommand.add_option("--report", scan.Report, "Copy the Reciprocal Link Report there")->type_name("FILE");
  scanCommand.add_option("--tab", scan.Tab, "Write the tab-delimited results there")->type_name("FILE");
  scanCommand.add_option("--page", scan.Page, "Generate the link page and write it there")->type_name("FILE");
  scanCommand.add_flag("--post", scan.Post,
                       "Post the results to the project's script URLs: its one URL, or with --set optAll=1 "
                       "the URL of each Main Site");
  AddCommonOptions(scanCommand, common);

  CLI::App& scriptCommand = *app.add_subcommand("script", "Press the program's controls, as told by a file");
  scriptCommand.add_option("FILE", script.File, "The script; standard input when left out");
  AddCommonOptions(scriptCommand, common);

  CLI::App& openCommand = *app.add_subcommand("open", "Start the window program with a project");
  openCommand.add_option("FILE", open.Project, "The project file; the one of the last time when left out");
  openCommand.footer(
      "Exit status: 0 the window program was started, 1 there is none that could be started, 2 FILE cannot "
      "be "
      "read.");
  AddEndFlags(openCommand);

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& help) {
    std::ostringstream text;
    app.exit(help, text, text);
    std::string words = text.str();
    while (words.ends_with('\n')) words.pop_back();
    return EndAtOnce{ExitStatus::Done, words};
  } catch (const CLI::ParseError& error) {
    return Refuse(error.what());
  }

  Options options;
  std::string why = TakeCommon(common, options.Common);
  if (why.empty() && scanCommand.parsed()) {
    why = TakeScan(scan);
    options.Command = scan;
  } else if (openCommand.parsed()) {
    open.Project = AbsolutePath(open.Project);
    if (!open.Project.empty()) why = WhyNotReadable(open.Project);
    options.Command = open;
  } else if (why.empty()) {
    if (!script.File.empty()) why = WhyNotReadable(script.File);
    options.Command = script;
  }
  if (!why.empty()) return Refuse(std::move(why));
  return options;
}

}  // namespace requite
