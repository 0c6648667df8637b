// SPDX-License-Identifier: MIT
// Decides when the desktop is told about a scan.
#pragma once

#include <QString>

#include "qt/window/desktop/desktop_bus.h"

namespace requite {

/// The state of a scan at one moment.
struct ScanSight {
  bool Scanning = false;
  bool InFront = true;  ///< a window of the program has the keyboard focus
  int Percent = 0;
  int LinksFound = 0;
  int PagesScanned = 0;
  QString Changes{};  ///< what the scan changed, in words; empty without a history
};

/// May be called with every state; the bus is only told what is new.
class ScanNotice {
 public:
  explicit ScanNotice(DesktopBus& bus) : bus_(bus) {}

  /// The task bar follows the percentage; an end that the user does not see sends a notification.
  void See(const ScanSight& sight);

 private:
  DesktopBus& bus_;
  bool scanning_ = false;
  int percent_ = DesktopBus::kNoProgress;
};

}  // namespace requite
