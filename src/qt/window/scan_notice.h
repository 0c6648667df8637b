// SPDX-License-Identifier: MIT
// Decides when the desktop hears of a scan.
#pragma once

#include "qt/window/desktop_bus.h"

namespace requite {

/// A scan as the window sees it at one moment.
struct ScanSight {
  bool Scanning = false;
  bool InFront = true;  ///< a window of the program has the user's keyboard
  int Percent = 0;
  int LinksFound = 0;
  int PagesScanned = 0;
};

/// Told of every sight, however often; the bus hears only of what is new.
class ScanNotice {
 public:
  explicit ScanNotice(DesktopBus& bus) : bus_(bus) {}

  /// The task bar follows the percentage; an end that the user does not see is notified.
  void See(const ScanSight& sight);

 private:
  DesktopBus& bus_;
  bool scanning_ = false;
  int percent_ = DesktopBus::kNoProgress;
};

}  // namespace requite
