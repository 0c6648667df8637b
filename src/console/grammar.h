// SPDX-License-Identifier: MIT
// The grammar of the command line: every command and option with its words for help.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "console/options.h"
#include "console/setting_words.h"

namespace requite {

/// What was typed for the options that several commands share.
struct RawCommon {
  std::string ProgramFolder;
  std::string SettingsFile;
  SettingPairs Settings;     // in the order in which they were written
  SettingPairs RunSettings;  // likewise
  std::vector<std::string> ConnectTo;
  bool Private = false;
  bool Quiet = false;
};

/// The parser, and what it fills. Help, the manual pages and the completion are all made from it.
struct Grammar {
  Grammar();
  Grammar(const Grammar&) = delete;
  Grammar& operator=(const Grammar&) = delete;

  RawCommon Common;
  ScanOptions Scan;
  ScriptOptions Script;
  ImportOptions Import;
  OpenOptions Open;
  SettingsOptions Settings;
  ChangesOptions Changes;
  HistoryOptions History;
  bool ListsCommands = false;  ///< `script --commands`
  CLI::App App{"Requite without its windows: scans for links back from a terminal or a nightly job."};
};

}  // namespace requite
