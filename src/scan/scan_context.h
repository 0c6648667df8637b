// SPDX-License-Identifier: MIT
// What the steps of a scan work on.
#pragma once

#include <string_view>

#include "model/project.h"
#include "model/settings.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/work_folder.h"
#include "scan/scan_host.h"
#include "scan/scan_state.h"
#include "scan/scan_window.h"
#include "scan/slices.h"

namespace requite {

/// Every step gets it by reference. Code that is not a step takes only the members that it uses.
struct ScanContext {
  requite::Project& Project;
  ScanLists& Lists;
  ScanState& State;
  ScanWindow Window;
  ScanHost& Host;
  Services& Platform;
  requite::Settings Settings;
  const ProgramFolder& Folder;
  WorkFolder& Work;
  requite::Gets Gets{Platform.Internet};  ///< for moved pages; aborted at the end of a site
  bool WritesWorkFiles = true;            ///< false for pages that are read ahead of the scan

  /// The slices of a step that reads a whole page.
  [[nodiscard]] Slices PageSlices() const { return SlicesOf(State.Scanning, Platform.EventLoop); }
};

/// The sounds of a scan, in the folder "sounds".
namespace sound {
inline constexpr std::string_view kNextSite = "sounds/nextsearch.wav";
inline constexpr std::string_view kLinkFound = "sounds/foundemail.wav";
inline constexpr std::string_view kFinished = "sounds/finished.wav";
}  // namespace sound

}  // namespace requite
