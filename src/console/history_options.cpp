// SPDX-License-Identifier: MIT
// The grammar of `changes` and `history`.
#include "console/history_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>

#include "console/path_checks.h"

namespace requite {
namespace {

/// Whether a text has the form: a "9" stands for any digit, another character for itself.
bool HasForm(std::string_view text, std::string_view form) {
  return text.size() == form.size() && std::equal(text.begin(), text.end(), form.begin(), [](char c, char f) {
           return f == '9' ? c >= '0' && c <= '9' : c == f;
         });
}

bool IsDate(std::string_view text) {
  return HasForm(text, "9999-99-99") || HasForm(text, "9999-99-99T99:99") ||
         HasForm(text, "9999-99-99T99:99:99") || HasForm(text, "9999-99-99T99:99:99Z");
}

std::string TakeSince(const std::string& since, ChangesWanted& wanted) {
  if (since.empty()) return {};
  std::int64_t number = 0;
  const char* const end = since.data() + since.size();
  const auto read = std::from_chars(since.data(), end, number);
  if (read.ec == std::errc() && read.ptr == end && number > 0) {
    wanted.SinceScan = number;
  } else if (IsDate(since)) {
    wanted.SinceDate = since;
  } else {
    return "--since: \"" + since + "\" is not a date such as 2026-01-31, nor the number of a scan";
  }
  return {};
}

std::string TakeFormat(const std::string& name, ChangesFormat& format) {
  if (name == "text") {
    format = ChangesFormat::Text;
  } else if (name == "tsv") {
    format = ChangesFormat::Tsv;
  } else if (name == "json") {
    format = ChangesFormat::Json;
  } else if (!name.empty()) {
    return "--format: \"" + name + "\" is not text, tsv or json";
  }
  return {};
}

}  // namespace

CLI::App& AddChanges(CLI::App& app, ChangesOptions& changes) {
  CLI::App& command = *app.add_subcommand("changes", "Tell what changed since the last recorded scan");
  command.add_option("PROJECT", changes.Project, "The project file")->required();
  command
      .add_option("--since", changes.Since,
                  "Compare with the last scan before a date (UTC), or with the scan of this number")
      ->type_name("DATE|ID");
  command.add_flag("--all", changes.Wanted.All,
                   "Also sites that are the same, marked as known, or not in the last scan");
  command.add_option("--format", changes.FormatName, "Text on a terminal and tsv elsewhere when left out")
      ->type_name("text|tsv|json");
  CLI::Option* const mark =
      command
          .add_option("--acknowledge", changes.Acknowledge,
                      "Mark a site (its host or Website URL) as known, with a word of why: it is not told "
                      "again until it changes")
          ->type_name("SITE WHY")
          ->expected(2);
  command.add_option("--unacknowledge", changes.TakeBack, "Take the mark of a site back")
      ->type_name("SITE")
      ->excludes(mark);
  command.footer(
      "Scans are recorded by scan --history, or by every scan with --set chkHistory=1.\n"
      "One line a change: kind, Main Site, Linking Site, before, now, since (UTC).\n"
      "Exit status: 0 nothing is lost, 1 links are lost (kinds lost and fewer), 2 the command line or a file "
      "is wrong, or there is no recorded scan.");
  return command;
}

CLI::App& AddHistory(CLI::App& app, HistoryOptions& history) {
  CLI::App& command = *app.add_subcommand("history", "List the recorded scans of a project");
  command.add_option("PROJECT", history.Project, "The project file")->required();
  command.add_flag(
      "--prune", history.Prune,
      "First delete scans older than 400 days, but keep the newest 100, and make the file small");
  command.footer("Exit status: 0 the scans are listed, 2 the command line or a file is wrong.");
  return command;
}

std::string TakeChanges(ChangesOptions& changes) {
  changes.Project = AbsolutePath(changes.Project);
  if (std::string why = WhyNotReadable(changes.Project); !why.empty()) return why;
  if (std::string why = TakeFormat(changes.FormatName, changes.Format); !why.empty()) return why;
  return TakeSince(changes.Since, changes.Wanted);
}

std::string TakeHistory(HistoryOptions& history) {
  history.Project = AbsolutePath(history.Project);
  return WhyNotReadable(history.Project);
}

}  // namespace requite
