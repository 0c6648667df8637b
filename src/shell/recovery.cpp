// SPDX-License-Identifier: MIT
// Writing the recovered project.
#include "shell/recovery.h"

#include <cstdio>

#include "model/project_files.h"
#include "model/project_text.h"
#include "platform/runtime_failure.h"

namespace requite {

std::optional<std::string> WriteRecovered(const Project& project, const ProgramFolder& folder) {
  if (project.ProjectSaved) return std::nullopt;
  const std::string path = folder.File(std::string(kProjectFilesFolder) + "/Recovered.prj");
  const std::string unfinished = path + ".new";
  const bool written = PassOver([&] {
    // One more line end than the text has, like every project file.
    WriteFile(unfinished, ProjectText(project) + std::string(kLineEnd));
  });
  if (!written || std::rename(unfinished.c_str(), path.c_str()) != 0) return std::nullopt;
  return path;
}

}  // namespace requite
