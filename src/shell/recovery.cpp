// SPDX-License-Identifier: MIT
// Writing the recovered project.
#include "shell/recovery.h"

#include <exception>

#include "model/project_files.h"
#include "model/project_text.h"
#include "platform/text.h"
#include "platform/whole_file.h"

namespace requite {

Recovered WriteRecovered(const Project& project, const ProgramFolder& folder, const std::string& home) {
  if (project.ProjectSaved) return {};
  // The missing folder for project files is itself a failure that ends the program.
  for (const std::string& place : {folder.File(kProjectFilesFolder), folder.Path, home}) {
    if (place.empty()) continue;
    try {
      const std::string path = place + "/Recovered.prj";
      // One more line end than the text has, like every project file.
      WriteWhole(path, ProjectText(project) + std::string(kLineEnd), Flush::Yes);
      return {true, path};
    } catch (const std::exception&) {
      // The memory may be what has run out. The next place is tried whatever the reason was.
      continue;
    }
  }
  return {true, {}};
}

}  // namespace requite
