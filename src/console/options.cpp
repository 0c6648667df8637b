// SPDX-License-Identifier: MIT
// Reads the command line, and the checks made before anything is done.
#include "console/options.h"

#include <algorithm>
#include <optional>

#include "console/grammar.h"
#include "console/path_checks.h"
#include "console/script/script_commands.h"
#include "console/text_codec.h"
#include "console/unknown_word.h"
#include "platform/text.h"

namespace requite {
namespace {

/// The first problem with the common options, or an empty text.
std::string TakeCommon(const RawCommon& raw, CommonOptions& common) {
  common.Settings = raw.Settings;
  common.RunSettings = raw.RunSettings;
  for (const std::string& each : raw.ConnectTo) {
    std::optional<ConnectRule> rule = ReadConnectRule(each);
    if (!rule) return "--connect-to: \"" + each + "\" is not HOST:PORT:ADDRESS:PORT2";
    common.ConnectTo.push_back(*std::move(rule));
  }
  common.Private = raw.Private;
  common.Quiet = raw.Quiet;
  common.ProgramFolder = AbsolutePath(raw.ProgramFolder);
  common.SettingsFile = AbsolutePath(raw.SettingsFile);
  if (std::string why = WhyNoFolder(common.ProgramFolder); !why.empty()) return "--program-folder: " + why;
  if (common.SettingsFile.empty()) return {};
  // A copy needs no writable settings file, nor one at all.
  const std::string why =
      common.Private ? WhyNoCopy(common.SettingsFile) : WhyNoSettings(common.SettingsFile);
  return why.empty() ? why : "--settings: " + why;
}

/// The first problem with the files that a scan reads and writes, or an empty text.
std::string TakeScan(ScanOptions& scan) {
  scan.Project = AbsolutePath(scan.Project);
  if (std::string why = WhyNotReadable(scan.Project); !why.empty()) return why;
  // Rows that are asked for never give way to another file.
  if (scan.Format != ResultFormat::Tsv && scan.Output.empty()) scan.Output = kStandardStream;
  const std::pair<const char*, std::string*> targets[] = {{"--save", &scan.Save},
                                                          {"--report", &scan.Report},
                                                          {"--tab", &scan.Tab},
                                                          {"--page", &scan.Page},
                                                          {"--output", &scan.Output}};
  const char* onOutput = nullptr;
  for (const auto& [option, path] : targets) {
    if (*path == kStandardStream) {
      if (onOutput != nullptr) {
        return std::string(onOutput) + " and " + option + " cannot both be standard output";
      }
      onOutput = option;
      continue;
    }
    *path = AbsolutePath(*path);
    if (std::string why = WhyNotWritable(*path); !why.empty()) return std::string(option) + ": " + why;
  }
  return {};
}

/// The first problem with the table and the project of an import, or an empty text.
std::string TakeImport(ImportOptions& import) {
  if (import.Table != kStandardStream) {
    if (std::string why = WhyNotReadable(import.Table); !why.empty()) return why;
  }
  const bool control = std::any_of(import.MainSite.begin(), import.MainSite.end(),
                                   [](unsigned char c) { return c < ' ' || c == 0x7F; });
  if (control || Trim(import.MainSite).empty()) return "--main: \"" + import.MainSite + "\" is no host";
  import.MainSite = Trim(import.MainSite);
  import.Project = AbsolutePath(import.Project);
  return WhyNotWritable(import.Project);
}

EndAtOnce Refuse(std::string why) {
  std::replace(why.begin(), why.end(), '\n', ' ');
  return {ExitStatus::Refused, "requite-console: " + VisibleUtf8(why)};
}

/// What has to be done at once: print help, or refuse the command line. Nothing when it can be run.
std::optional<EndAtOnce> Parse(CLI::App& app, int argc, const char* const* argv) {
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& help) {
    std::ostringstream text;
    app.exit(help, text, text);
    std::string words = text.str();
    while (words.ends_with('\n')) words.pop_back();
    return EndAtOnce{ExitStatus::Done, words};
  } catch (const CLI::ParseError& error) {
    // An unknown word explains any other error.
    std::string unknown = UnknownWord(app);
    if (!unknown.empty()) return Refuse(std::move(unknown));
    if (app.get_subcommands().empty())
      return Refuse(
          "a command is missing: scan, script, import, open, settings, changes or history (see --help)");
    return Refuse(error.what());
  }
  return std::nullopt;
}

}  // namespace

std::variant<Options, EndAtOnce> ReadCommandLine(int argc, const char* const* argv) {
  Grammar grammar;
  auto& [common, scan, script, import, open, settings, changes, history, listsCommands, app] = grammar;
  if (std::optional<EndAtOnce> end = Parse(app, argc, argv)) return *std::move(end);
  if (listsCommands) return EndAtOnce{ExitStatus::Done, CommandTable()};

  // A list needs no settings file that can be written, nor one at all.
  if (app.got_subcommand("settings") && common.Settings.empty()) common.Private = true;
  Options options;
  std::string why = TakeCommon(common, options.Common);
  if (why.empty() && app.got_subcommand("scan")) {
    why = TakeScan(scan);
    options.Command = scan;
  } else if (why.empty() && app.got_subcommand("changes")) {
    why = TakeChanges(changes);
    options.Command = changes;
  } else if (why.empty() && app.got_subcommand("history")) {
    why = TakeHistory(history);
    options.Command = history;
  } else if (why.empty() && app.got_subcommand("import")) {
    why = TakeImport(import);
    options.Command = import;
  } else if (why.empty() && app.got_subcommand("settings")) {
    why = TakeSettings(settings);
    options.Command = settings;
  } else if (app.got_subcommand("open")) {
    open.Project = AbsolutePath(open.Project);
    if (!open.Project.empty()) why = WhyNotReadable(open.Project);
    options.Command = open;
  } else if (why.empty()) {
    if (script.File == kStandardStream) script.File.clear();
    if (!script.File.empty()) why = WhyNotReadable(script.File);
    options.Command = script;
  }
  if (!why.empty()) return Refuse(std::move(why));
  return options;
}

}  // namespace requite
