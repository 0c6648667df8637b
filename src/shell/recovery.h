// SPDX-License-Identifier: MIT
// What is saved of the user's work when a failure that nothing handles ends the program.
#pragma once

#include <optional>
#include <string>

#include "model/project.h"
#include "platform/files.h"

namespace requite {

/// Writes a project with unsaved edits to "Recovered.prj" in the folder for project files, by a
/// temporary file and a rename, so that an older one is never lost for a broken one. Returns the
/// path; nothing when there are no unsaved edits or when nothing could be written.
[[nodiscard]] std::optional<std::string> WriteRecovered(const Project& project, const ProgramFolder& folder);

}  // namespace requite
