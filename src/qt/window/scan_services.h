// SPDX-License-Identifier: MIT
// Lets a change of the setting SitesAtATime take effect with the next scan.
#pragma once

#include <optional>

#include "qt/window/desktop/desktop_services.h"
#include "runahead/run_ahead_services.h"
#include "shell/main_window/form1.h"

namespace requite {

/// Gives the scan the services that the setting asks for whenever a scan starts. While sites are scanned one
/// at a time there is nothing between the scan and the desktop's services.
class ScanServices {
 public:
  /// Both must outlive this object, or the form at least its last scan.
  ScanServices(DesktopServices& services, Form1& form);

 private:
  void Follow();
  void ReadAhead();
  void ReadOneAtATime();

  DesktopServices& services_;
  Form1& form_;
  std::optional<RunAheadServices> ahead_;
};

}  // namespace requite
