// SPDX-License-Identifier: MIT
// The command line of requite-console.
#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "console/exit_status.h"
#include "console/history_options.h"
#include "console/settings_command.h"
#include "system/connect_map.h"

namespace requite {

/// The options of both commands. Paths are bytes of the file system, all other texts are UTF-8.
struct CommonOptions {
  std::string ProgramFolder;                                     ///< empty: the program's own choice
  std::string SettingsFile;                                      ///< empty: the user's own
  std::vector<std::pair<std::string, std::string>> Settings;     ///< are stored
  std::vector<std::pair<std::string, std::string>> RunSettings;  ///< hold for this run and are not stored
  std::vector<ConnectRule> ConnectTo;
  bool Private = false;  ///< settings are a copy that is thrown away
  bool Quiet = false;    ///< no progress and no summary on standard error
};

/// As a file name: standard output, or standard input where a file is read.
inline constexpr const char* kStandardStream = "-";

/// How the rows of a scan are written.
enum class ResultFormat { Tsv, Csv, Json, JUnit };

struct ScanOptions {
  std::string Project;
  ResultFormat Format = ResultFormat::Tsv;
  std::string Output;  ///< of the rows; empty: standard output, unless another file is written there
  std::string Save;    ///< empty: none; kStandardStream: standard output. The next three are alike
  std::string Report;
  std::string Tab;
  std::string Page;
  bool Post = false;  ///< post the results to the project's script URLs
  int SkipAfter = 0;  ///< seconds a site may take before Skip is pressed; 0: no limit
  int StopAfter = 0;  ///< seconds the scan may take before Stop is pressed; 0: no limit
};

struct ScriptOptions {
  std::string File;  ///< empty or kStandardStream: standard input
};

struct OpenOptions {
  std::string Project;  ///< empty: the last project
};

struct ImportOptions {
  std::string Table;     ///< a CSV file; kStandardStream: standard input
  std::string MainSite;  ///< UTF-8
  std::string Project;   ///< need not exist
};

struct Options {
  CommonOptions Common;
  std::variant<ScanOptions, ScriptOptions, ImportOptions, OpenOptions, SettingsOptions, ChangesOptions,
               HistoryOptions>
      Command;
};

/// The program has to end at once: with a text for standard output (help, version), or with one line for
/// standard error and ExitStatus::Refused.
struct EndAtOnce {
  ExitStatus Status = ExitStatus::Done;
  std::string Text;
};

/// Reads the command line and checks that the files it names can be used. Writes nothing.
[[nodiscard]] std::variant<Options, EndAtOnce> ReadCommandLine(int argc, const char* const* argv);

}  // namespace requite
