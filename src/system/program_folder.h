// SPDX-License-Identifier: MIT
// Where the program's folder and the user's settings are.
#pragma once

#include <string>

#include "platform/files.h"

namespace requite {

/// The places that the choice is made from, without a separator at the end.
struct ProgramPlaces {
  std::string Executable;  ///< the folder of the executable
  std::string Installed;   ///< where the files for the program's folder are: the executable's own
                           ///< folder for a copy that was not installed
  std::string UserData;    ///< the program's folder when the program is installed

  /// The places of the running program: `$XDG_DATA_HOME/requite`, by default `~/.local/share/requite`.
  [[nodiscard]] static ProgramPlaces OfThisProgram();
};

/// The user's data folder (made when missing) for an installed program and for one whose own folder cannot
/// be written; else the executable's folder. Installed files that are missing there are copied to it.
[[nodiscard]] ProgramFolder ChooseProgramFolder(const ProgramPlaces& places);

/// Copies each installed file that is missing in the folder, even one that the user deleted.
/// Existing files are left alone. Failures are ignored: the next start tries again.
void FillProgramFolder(const std::string& installed, const std::string& folder);

/// The folder of the running executable, without links in its path.
[[nodiscard]] std::string ExecutableFolder();

/// `$HOME`; empty when it is not set.
[[nodiscard]] std::string HomeFolder();

/// `$XDG_CONFIG_HOME/requite/settings`, by default `~/.config/requite/settings`.
[[nodiscard]] std::string DefaultSettingsPath();

}  // namespace requite
