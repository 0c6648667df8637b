// SPDX-License-Identifier: MIT
// Adds the commands and their options.
#include "console/grammar.h"

#include "console/partner_table.h"
#include "console/unknown_word.h"
#include "shell/product.h"

namespace requite {
namespace {

constexpr const char* kStoredWords = "Words for settings, stored in the same way as by --set";

void AddRepeatable(CLI::App& app, const char* name, std::vector<std::string>& values, const char* words,
                   const char* form) {
  // Takes one value at a time, so the words after it belong to the command.
  app.add_option(name, values, words)
      ->type_name(form)
      ->allow_extra_args(false)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void AddEndFlags(CLI::App& app) {
  app.set_version_flag("-V,--version", "requite-console " + std::string(product::kVersion),
                       "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
}

void AddProgramFolder(CLI::App& app, RawCommon& common) {
  AddEndFlags(app);
  app.add_option("--program-folder", common.ProgramFolder, "The folder that holds the program's files")
      ->type_name("DIR");
}

/// Words are taken when they are read, so that the last of several for one setting wins, --set or not.
void AddSettingWord(CLI::App& app, const SettingWord& word, SettingPairs& pairs) {
  const std::string option(word.Option);
  const auto take = [&word, &pairs](const std::string& value) {
    const std::string why = TakeSettingWord(word, value, pairs);
    if (!why.empty()) throw CLI::ValidationError(std::string(word.Option), why);
  };
  CLI::Option* const added = word.Form.empty()
                                 ? app.add_flag_callback(
                                       option, [take] { take({}); }, std::string(word.Words))
                                 : app.add_option_function<std::string>(option, take, std::string(word.Words))
                                       ->type_name(std::string(word.Form));
  added->trigger_on_parse();
  if (word.How == SettingWord::Lasts::Stored) added->group(kStoredWords);
}

/// --settings, --set and the words that are the same as --set.
void AddStoredSettings(CLI::App& app, RawCommon& common) {
  app.add_option("--settings", common.SettingsFile, "The settings store to use")->type_name("FILE");
  const auto set = [&common](const std::string& pair) {
    const std::size_t sign = pair.find('=');
    if (sign == std::string::npos || sign == 0)
      throw CLI::ValidationError("--set", "\"" + pair + "\" is not KEY=VALUE");
    common.Settings.emplace_back(pair.substr(0, sign), pair.substr(sign + 1));
  };
  app.add_option_function<std::string>(
         "--set", set,
         "Store one setting before anything else runs; the command settings lists the keys. Repeatable")
      ->type_name("KEY=VALUE")
      ->trigger_on_parse();
  for (const SettingWord& word : SettingWords()) {
    if (word.How == SettingWord::Lasts::Stored) AddSettingWord(app, word, common.Settings);
  }
}

enum class OfCommand { Scan, Other };

void AddCommonOptions(CLI::App& app, RawCommon& common, OfCommand command = OfCommand::Other) {
  AddProgramFolder(app, common);
  AddStoredSettings(app, common);
  for (const SettingWord& word : SettingWords()) {
    if (word.How == SettingWord::Lasts::Stored) continue;
    if (word.OfScanOnly && command != OfCommand::Scan) continue;
    AddSettingWord(app, word, common.RunSettings);
  }
  AddRepeatable(app, "--connect-to", common.ConnectTo,
                "Send connections to HOST:PORT to ADDRESS:PORT2 (an empty HOST or PORT matches any)",
                "HOST:PORT:ADDRESS:PORT2");
  app.add_flag("--private", common.Private, "Use a copy of the settings that is thrown away at the end");
  app.add_flag("-q,--quiet", common.Quiet, "No progress and no summary on standard error");
}

void AddSeconds(CLI::App& app, const char* name, int& seconds, const char* words) {
  constexpr int kMost = 2'000'000;  // over three weeks, and fits an int in milliseconds
  app.add_option(name, seconds, words)->type_name("SECONDS")->check(CLI::Range(1, kMost).description(""));
}

ResultFormat FormatOf(const std::string& word) {
  static const std::pair<const char*, ResultFormat> kFormats[] = {{"tsv", ResultFormat::Tsv},
                                                                  {"csv", ResultFormat::Csv},
                                                                  {"json", ResultFormat::Json},
                                                                  {"junit", ResultFormat::JUnit}};
  for (const auto& [name, format] : kFormats) {
    if (word == name) return format;
  }
  const std::string nearest = NearestWord(word, {"tsv", "csv", "json", "junit"});
  throw CLI::ValidationError("--format", "\"" + word + "\" is not one of tsv, csv, json and junit" +
                                             (nearest.empty() ? "" : ", did you mean " + nearest + "?"));
}

void AddFormat(CLI::App& command, ScanOptions& scan) {
  command
      .add_option_function<std::string>(
          "--format", [&scan](const std::string& word) { scan.Format = FormatOf(word); },
          "How the result rows are written: tsv (as when left out), csv for spreadsheets, json, or junit for "
          "build servers")
      ->type_name("tsv|csv|json|junit");
  command.add_option("--output", scan.Output, "Write the result rows there (- is standard output)")
      ->type_name("FILE");
}

void AddScan(CLI::App& app, ScanOptions& scan, RawCommon& common) {
  CLI::App& command = *app.add_subcommand("scan", "Run one scan of a project, start to end");
  command.add_option("PROJECT", scan.Project, "The project file")->required();
  AddFormat(command, scan);
  command.add_option("--save", scan.Save, "Save the project there when done (- is standard output)")
      ->type_name("FILE");
  command.add_option("--report", scan.Report, "Write the Reciprocal Link Report there (or -)")
      ->type_name("FILE");
  command.add_option("--tab", scan.Tab, "Write the tab-delimited results there (or -)")->type_name("FILE");
  command.add_option("--page", scan.Page, "Generate the link page and write it there (or -)")
      ->type_name("FILE");
  command.add_flag("--post", scan.Post,
                   "Post the results to the project's script URLs: its one URL, or with --set optAll=1 "
                   "the URL of each Main Site");
  AddSeconds(command, "--skip-after", scan.SkipAfter, "Press Skip when a site takes longer");
  AddSeconds(command, "--stop-after", scan.StopAfter, "Press Stop when the scan takes longer");
  AddCommonOptions(command, common, OfCommand::Scan);
  command.footer(
      "The result rows go to standard output, unless one of the files does or --output names another.\n"
      "Exit status: 0 every site links back as often as expected, 1 at least one does not, 2 the command "
      "line or a file is wrong, 4 a posted row got no answer, 70 a failure ended the program, 130 after "
      "an interrupt.");
}

void AddScript(CLI::App& app, ScriptOptions& script, bool& listsCommands, RawCommon& common) {
  CLI::App& command = *app.add_subcommand("script", "Press the program's controls, as told by a file");
  command.add_option("FILE", script.File, "The script; standard input when left out or -");
  command.add_flag("--commands", listsCommands, "Print the commands of a script and exit");
  AddCommonOptions(command, common);
  command.footer(
      "Exit status: 0 the script ran, 2 the command line or a line of the script is wrong, 3 \"wait idle\" "
      "ran out of time, 70 a failure ended the program.");
}

void AddImport(CLI::App& app, ImportOptions& import, RawCommon& common) {
  CLI::App& command = *app.add_subcommand("import", "Add the partners of a table to a project file");
  command.add_option("FILE", import.Table, "A table in CSV (- is standard input)")->required();
  command.add_option("PROJECT", import.Project, "The project file; it is made when there is none")
      ->required();
  command.add_option("--main", import.MainSite, "The Main Site whose Linking Sites the partners become")
      ->type_name("HOST")
      ->required();
  AddCommonOptions(command, common);
  command.footer(
      "The first line of the table names its columns, in any letter case; others are passed over:\n" +
      PartnerColumnsHelp() +
      "Commas, semicolons or tabs separate the cells. Sites that are in the list already are named and "
      "passed over.\n"
      "Exit status: 0 the partners are in the project, 2 the command line, the table or the project is "
      "wrong, and nothing was added; 70 a failure ended the program.");
}

void AddSettings(CLI::App& app, SettingsOptions& settings, RawCommon& common) {
  CLI::App& command =
      *app.add_subcommand("settings", "List all settings with their values and what they mean");
  command.add_option("--format", settings.FormatName, "Text on a terminal and tsv elsewhere when left out")
      ->type_name("text|tsv|json");
  AddStoredSettings(command, common);
  command.footer(
      "What --set and the words store is in the list already. Without them nothing is written.\n"
      "Exit status: 0 the settings are listed, 2 the command line or the settings file is wrong.");
  AddEndFlags(command);
}

void AddOpen(CLI::App& app, OpenOptions& open) {
  CLI::App& command = *app.add_subcommand("open", "Start the window program with a project");
  command.add_option("FILE", open.Project, "The project file; the one of the last time when left out");
  command.footer(
      "Exit status: 0 the window program was started, 1 there is none that could be started, 2 FILE cannot "
      "be read.");
  AddEndFlags(command);
}

}  // namespace

Grammar::Grammar() {
  App.name("requite-console");
  App.require_subcommand(1);
  AddEndFlags(App);
  AddScan(App, Scan, Common);
  AddScript(App, Script, ListsCommands, Common);
  AddImport(App, Import, Common);
  AddOpen(App, Open);
  AddSettings(App, Settings, Common);
  AddProgramFolder(AddChanges(App, Changes), Common);
  AddProgramFolder(AddHistory(App, History), Common);
}

}  // namespace requite
