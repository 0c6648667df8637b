// SPDX-License-Identifier: MIT
// The end of the program after a failure that nothing handled: saves the user's work and reports it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "model/project.h"
#include "platform/files.h"
#include "platform/runtime_failure.h"

namespace requite {

struct Recovered {
  bool Needed = false;  ///< there were unsaved edits
  std::string Path;     ///< where they were saved; empty when no folder could be written
};

/// Writes a project with unsaved edits to "Recovered.prj", in the first of these folders that can be
/// written: the one for project files, the program's folder, the user's home. An older file is replaced
/// whole or not at all. The new file is on the disk on return. Never throws.
[[nodiscard]] Recovered WriteRecovered(const Project& project, const ProgramFolder& folder,
                                       const std::string& home);

/// One line of the report: words in the code page that begin without a capital letter, and the path that
/// they lead to, in bytes of the file system; without a path it is empty.
struct ReportLine {
  std::string Words;
  std::string Path;
};

/// Where the report looks for the user's work and what it names.
struct ReportPlaces {
  const ProgramFolder& Folder;
  std::string Home;
  std::string SettingsFile;
};

/// Writes a project with unsaved edits as WriteRecovered does, shows the report, and ends the program with
/// kRunTimeFailureStatus. `project` is null before there is one.
[[noreturn]] void EndWithReport(const RuntimeFailure& failure, const Project* project,
                                const ReportPlaces& places,
                                const std::function<void(const std::vector<ReportLine>&)>& show);

}  // namespace requite
