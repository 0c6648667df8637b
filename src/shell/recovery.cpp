// SPDX-License-Identifier: MIT
// Writes the recovered project and the words of the report.
#include "shell/recovery.h"

#include <cstdlib>
#include <exception>

#include "editing/project_files.h"
#include "model/project_text.h"
#include "platform/text.h"
#include "platform/whole_file.h"

namespace requite {

Recovered WriteRecovered(const Project& project, const ProgramFolder& folder, const std::string& home) {
  if (project.ProjectSaved) return {};
  // A missing folder for project files may be the very failure that ends the program.
  for (const std::string& place : {folder.File(kProjectFilesFolder), folder.Path, home}) {
    if (place.empty()) continue;
    try {
      const std::string path = place + "/Recovered.prj";
      // Every project file ends with one more line end than its text has.
      WriteWhole(path, ProjectText(project) + std::string(kLineEnd), Flush::Yes);
      return {true, path};
    } catch (const std::exception&) {
      // Any failure, even of memory, must not keep the next folder from being tried.
      continue;
    }
  }
  return {true, {}};
}

void EndWithReport(const RuntimeFailure& failure, const Project* project, const ReportPlaces& places,
                   const std::function<void(const std::vector<ReportLine>&)>& show) {
  // The work is saved first because showing the report may fail too.
  const Recovered recovered =
      project == nullptr ? Recovered{} : WriteRecovered(*project, places.Folder, places.Home);
  std::vector<ReportLine> lines = {
      {"run-time failure " + std::to_string(failure.Number) + ": " + failure.Description, {}}};
  if (!failure.Remedy.empty()) {
    lines.push_back({failure.Remedy + " It can be corrected in the settings file", places.SettingsFile});
  }
  if (!recovered.Path.empty()) {
    lines.push_back({"the unsaved project was written to", recovered.Path});
  } else if (recovered.Needed) {
    lines.push_back({"the unsaved project could not be written to a file.", {}});
  }
  show(lines);
  // Destructors must not run: handlers on the stack may still use the objects.
  std::_Exit(kRunTimeFailureStatus);
}

}  // namespace requite
