// SPDX-License-Identifier: MIT
// The options of the commands that read the history.
#pragma once

#include <string>
#include <vector>

#include "history/change_list.h"

namespace CLI {
class App;
}  // namespace CLI

namespace requite {

enum class ChangesFormat { Default, Text, Tsv, Json };

struct ChangesOptions {
  std::string Project;
  std::string Since;       ///< as typed; TakeChanges puts it into Wanted
  std::string FormatName;  ///< likewise, into Format
  ChangesWanted Wanted;
  ChangesFormat Format = ChangesFormat::Default;  ///< text on a terminal, otherwise tsv
  std::vector<std::string> Acknowledge;           ///< nothing, or a site and a word of why; UTF-8
  std::string TakeBack;                           ///< a site, or empty
};

struct HistoryOptions {
  std::string Project;
  bool Prune = false;
};

/// Each adds its subcommand and returns it.
CLI::App& AddChanges(CLI::App& app, ChangesOptions& changes);
CLI::App& AddHistory(CLI::App& app, HistoryOptions& history);

/// Each completes what was read and returns the first problem, or an empty text.
[[nodiscard]] std::string TakeChanges(ChangesOptions& changes);
[[nodiscard]] std::string TakeHistory(HistoryOptions& history);

}  // namespace requite
