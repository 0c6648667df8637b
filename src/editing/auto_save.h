// SPDX-License-Identifier: MIT
// Saves the project automatically while a scan runs.
#pragma once

#include <cstdint>

#include "editing/project_files.h"
#include "model/settings.h"
#include "platform/files.h"

namespace requite {

/// Seconds of scanning between two saves. The number of minutes in the options has no effect on it.
inline constexpr std::int32_t kAutoSaveSeconds = 300;

class AutoSave {
 public:
  /// `ticks` are the seconds counted so far; the start of a scan sets them to 0.
  AutoSave(ProjectFiles& files, const Settings& settings, const ProgramFolder& folder, std::int32_t& ticks)
      : files_(files), settings_(settings), folder_(folder), ticks_(ticks) {}

  /// One second. Counts, and saves, only while a scan runs and the setting says so: to the last
  /// project, or else to "AutoSaved.prj" in a folder "projects", which the program never makes. That file
  /// is the last project from then on. A failure to save is thrown.
  void Timer1_Tick(bool scanning);

 private:
  ProjectFiles& files_;
  Settings settings_;
  const ProgramFolder& folder_;
  std::int32_t& ticks_;
};

}  // namespace requite
