// SPDX-License-Identifier: MIT
// What is saved of the user's work when a failure that nothing handles ends the program.
#pragma once

#include <string>

#include "model/project.h"
#include "platform/files.h"

namespace requite {

struct Recovered {
  bool Needed = false;  ///< there were unsaved edits
  std::string Path;     ///< where they lie; empty when they could not be written anywhere
};

/// Writes a project with unsaved edits to "Recovered.prj" in the first folder that takes it: the one for
/// project files, the program's folder, the user's home. An older one is replaced whole or not at all,
/// and the new one is on the disk on return. Never throws.
[[nodiscard]] Recovered WriteRecovered(const Project& project, const ProgramFolder& folder,
                                       const std::string& home);

}  // namespace requite
