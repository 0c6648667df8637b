// SPDX-License-Identifier: MIT
// The command line of requite-console.
#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "console/exit_status.h"
#include "system/connect_map.h"

namespace requite {

/// What both commands take. Paths are bytes of the file system, all other texts are UTF-8.
struct CommonOptions {
  std::string ProgramFolder;  ///< empty: the program's own choice
  std::string SettingsFile;   ///< empty: the user's own
  std::vector<std::pair<std::string, std::string>> Settings;
  std::vector<ConnectRule> ConnectTo;
  bool Private = false;  ///< settings are a copy that ends with the run
  bool Quiet = false;    ///< no progress and no summary on standard error
};

/// As the name of a file: standard output, or standard input of `script`.
inline constexpr const char* kStandardStream = "-";

struct ScanOptions {
  std::string Project;
  std::string Save;  ///< empty: not asked for; kStandardStream: standard output; like the three below
  std::string Report;
  std::string Tab;
  std::string Page;
  bool Post = false;  ///< post the results to the project's script URLs
  int SkipAfter = 0;  ///< seconds that a site may take before Skip is pressed; 0: any time
  int StopAfter = 0;  ///< seconds that the scan may take before Stop is pressed; 0: any time
};

struct ScriptOptions {
  std::string File;  ///< empty or kStandardStream: standard input
};

struct OpenOptions {
  std::string Project;  ///< empty: the project that was open last
};

struct Options {
  CommonOptions Common;
  std::variant<ScanOptions, ScriptOptions, OpenOptions> Command;
};

/// The command line says to end at once: with a text for standard output (help, version), or with
/// one line for standard error and ExitStatus::Refused.
struct EndAtOnce {
  ExitStatus Status = ExitStatus::Done;
  std::string Text;
};

/// Reads the command line and tests that the files it names can be used. Writes nothing.
[[nodiscard]] std::variant<Options, EndAtOnce> ReadCommandLine(int argc, const char* const* argv);

}  // namespace requite
